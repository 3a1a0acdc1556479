#include "benchmarks/sequencer/sequencefile.h"

#include "animation/animcell.h"
#include "benchmarks/harness.h"
#include "io/stream.h"
#include "sequencer/control.h"

#include <cstdlib>

SequenceFile::SequenceFile() : mRoot(bench::getMemoryDirectory() / "sequenceXXXXXX")
{
    if (!mkdtemp(mRoot.data()))
        abort();
    std::filesystem::create_directory(mRoot + "/intermediate");
    mPath = mRoot + "/intermediate/" + LogicalName + ".asq.xml";

    AnimCell cell;
    List<ControlBase> controls;
    cell.makeControlList(controls);
    for (unsigned int track = 0; track < TrackNum; ++track)
    {
        const AutoString name(("Track" + std::to_string(track)).c_str());
        mSequence.addTrack(AnimCell::getStaticTypeInfo(), name);
        for (ControlBase* control : controls)
        {
            mSequence.addLane(name, control);
            for (unsigned int key = 0; key < KeyNum; ++key)
                mSequence.addKey(name, control->getName(), key * KeyDistance, eInterpolateType::Linear);
        }
    }
    for (ControlBase* control : controls)
        delete control;
    mSequence.setEndFrame(KeyNum * KeyDistance);
    save();
}

SequenceFile::~SequenceFile()
{
    std::error_code error;
    std::filesystem::remove_all(mRoot, error);
}

void SequenceFile::save()
{
    TextFileStream stream(getPath(), FileStream::Write);
    if (!mSequence.save(stream))
        abort();
}
