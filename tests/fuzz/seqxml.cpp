#include "sequencer/sequencer.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "tests/fuzz/support/fuzzsequence.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    fuzz::runSequence<SequencerResourceIntermediate, Sequencer, TextFileStream>(data, size);
    return 0;
}
