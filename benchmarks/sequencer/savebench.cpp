#include "benchmarks/harness.h"
#include "benchmarks/sequencer/sequencefile.h"

#include <cstdlib>
#include <memory>

#if __has_include(<pugixml.hpp>)
#define PUGIXML_NO_EXCEPTIONS
#include <pugixml.hpp>
#define HAS_PUGIXML
#endif

namespace
{
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
    const std::shared_ptr<SequenceFile> sequence = std::make_shared<SequenceFile>();
    bench::Candidates candidates;
    candidates.push_back({"AnimResource", [sequence]
                          {
                              return bench::measure([&] { sequence->save(); });
                          }});
#ifdef HAS_PUGIXML
    const std::shared_ptr<pugi::xml_document> tree = std::make_shared<pugi::xml_document>();
    if (!tree->load_file(sequence->getPath(), pugi::parse_minimal))
        abort();
    candidates.push_back({"pugixml", [sequence, tree]
                          {
                              return bench::measure([&] { savePeer(*tree, sequence->getPath()); });
                          }});
#endif
    return candidates;
}

const bench::Goal Save(15, "saving a sequence of 12k keys", 2.0, makeSave);
}
