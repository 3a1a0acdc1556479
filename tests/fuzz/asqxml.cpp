#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "tests/fuzz/support/fuzzsequence.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    fuzz::runSequence<AnimResource, AnimSequencer, TextFileStream>(data, size);
    return 0;
}
