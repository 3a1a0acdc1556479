#include "sequencer/sequencer.h"
#include "tests/fuzz/support/fuzzsequence.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    fuzz::runSequence<SequencerResource, Sequencer, BinaryFileStream>(data, size);
    return 0;
}
