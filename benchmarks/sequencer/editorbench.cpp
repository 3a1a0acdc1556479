#include "benchmarks/harness.h"
#include "benchmarks/sequencer/sequencefile.h"
#include "benchmarks/worker.h"

#include <cstdlib>
#include <memory>
#include <utility>

#if __has_include(<pugixml.hpp>)
#define PUGIXML_NO_EXCEPTIONS
#include <pugixml.hpp>
#define HAS_PUGIXML
#endif

namespace
{
using bench::eDriver;
using Row = bench::sWorkerRow;

// The file lives as long as a candidate that works with it.
bench::Candidates hold(const std::shared_ptr<SequenceFile>& file, bench::Candidates candidates)
{
    for (bench::sCandidate& candidate : candidates)
        candidate.round = [file, round = std::move(candidate.round)]
        {
            return round();
        };
    return candidates;
}

bench::Candidates makeFrames(Row editor, Row plain)
{
    const auto file = std::make_shared<SequenceFile>();
    return hold(file, makeWorkers(file->getRoot(), eDriver::Null, {editor, plain}));
}

bench::Candidates makeOpening()
{
    const auto file = std::make_shared<SequenceFile>();
    bench::Candidates candidates =
        hold(file, makeWorkers(file->getRoot(), eDriver::Null, {{"ResourceSystem", "editor", "open"}}));
#ifdef HAS_PUGIXML
    const auto parse = [file]
    {
        pugi::xml_document tree;
        if (!tree.load_file(file->getPath(), pugi::parse_minimal))
            abort();
        bench::keep(tree);
    };
    candidates.push_back({"pugixml, parse alone", [parse]
                          {
                              return bench::measure(parse);
                          }});
#endif
    return candidates;
}

// Per element: the rows of tracks and lanes in both columns of the timeline, seen or not, and the boxes of the tracks'
// names. Beside it are as many plain elements, as many of them seen.
const bench::Goal
    collapsed(17, "frame of the editor, 60 tracks, per element of its timeline", 1.5,
              [] {
                  return makeFrames({"AnimTool", "editor", "editor"}, {"plain elements", "editor", "plain"});
              });
const bench::Goal extracted(
    17, "frame of the editor, 60 tracks extracted, per element of its timeline", 1.5,
    [] {
        return makeFrames({"AnimTool", "editor", "editor extracted"}, {"plain elements", "editor", "plain extracted"});
    });
const bench::Goal opening(18, "opening a sequence of 12k keys, beside the parse of its file", 4.0, makeOpening);
}
