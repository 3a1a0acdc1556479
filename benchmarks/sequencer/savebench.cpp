#include "animation/animcell.h"
#include "benchmarks/harness.h"
#include "io/stream.h"
#include "sequencer/control.h"
#include "sequencer/sequencerresourceintermediate.h"

#include <cstdlib>
#include <memory>
#include <string>

#include <unistd.h>

#if __has_include(<pugixml.hpp>)
#define PUGIXML_NO_EXCEPTIONS
#include <pugixml.hpp>
#define HAS_PUGIXML
#endif

namespace
{
constexpr unsigned int TrackNum = 60;
constexpr unsigned int KeyNum = 40;

// A sequence of cells with a lane for each of their five controls, and the file that it is saved in.
class Scene
{
public:
    Scene();
    ~Scene() { std::filesystem::remove(mPath); }

    const char* getPath() const { return mPath.c_str(); }

    // From the objects to the file.
    void save()
    {
        TextFileStream stream(getPath(), FileStream::Write);
        if (!mSequence.save(stream))
            abort();
    }

private:
    std::string mPath = bench::getMemoryDirectory() / ("savebench" + std::to_string(getpid()));
    SequencerResourceIntermediate mSequence;
};

Scene::Scene()
{
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
                mSequence.addKey(name, control->getName(), key * 3, eInterpolateType::Linear);
        }
    }
    for (ControlBase* control : controls)
        delete control;
    save();
}

#ifdef HAS_PUGIXML
void copyTree(pugi::xml_node from, pugi::xml_node to)
{
    for (const pugi::xml_attribute attribute : from.attributes())
        to.append_attribute(attribute.name()) = attribute.value();
    for (const pugi::xml_node child : from.children())
        copyTree(child, to.append_child(child.name()));
}

// The peer has the tree as names and texts already.
void savePeer(const pugi::xml_document& tree, const char* path)
{
    pugi::xml_document document;
    copyTree(tree, document);
    if (!document.save_file(path))
        abort();
}
#endif

bench::Candidates makeSave()
{
    const std::shared_ptr<Scene> scene = std::make_shared<Scene>();
    bench::Candidates candidates;
    candidates.push_back({"SequencerResourceIntermediate", [scene]
                          {
                              return bench::measure([&] { scene->save(); });
                          }});
#ifdef HAS_PUGIXML
    const std::shared_ptr<pugi::xml_document> tree = std::make_shared<pugi::xml_document>();
    if (!tree->load_file(scene->getPath(), pugi::parse_minimal))
        abort();
    candidates.push_back({"pugixml", [scene, tree]
                          {
                              return bench::measure([&] { savePeer(*tree, scene->getPath()); });
                          }});
#endif
    return candidates;
}

const bench::Goal Save(15, "saving a sequence of 12k keys", 2.0, makeSave);
}
