#include "benchmarks/worker.h"

namespace
{
using bench::eDriver;
using Row = bench::sWorkerRow;

constexpr Row Own{"UISystem", "interface", ""};
constexpr Row Bound{"controls of properties", "interface", "bound"};
constexpr Row ImGui2{"Dear ImGui, opengl2", "imgui", "2"};
constexpr Row ImGui3{"Dear ImGui, opengl3", "imgui", "3"};

// Scenes are: elements, whether one window scrolls them all, and whether the frame ends with the list of commands,
// with handing them over, or with the finished picture.
const bench::Goal few(5, "interface of 100 elements to the command list", 0.75,
                      [] {
                          return makeWorkers("100 0 0", eDriver::Null, {Own, ImGui2});
                      });
const bench::Goal visible(5, "interface of 1000 elements to the command list", 0.75,
                          [] {
                              return makeWorkers("1000 0 0", eDriver::Null, {Own, ImGui2});
                          });
const bench::Goal many(5, "interface of 3000 elements to the command list", 0.75,
                       [] {
                           return makeWorkers("3000 0 0", eDriver::Null, {Own, ImGui2});
                       });
const bench::Goal scrolled(5, "interface of 1000 elements in a scrolled window to the command list", 0.40,
                           [] {
                               return makeWorkers("1000 1 0", eDriver::Null, {Own, ImGui2});
                           });
const bench::Goal submitted(6, "interface of 1000 elements to OpenGL, processor", 0.85,
                            [] {
                                return makeWorkers("1000 0 1", eDriver::Null, {Own, ImGui2});
                            });
const bench::Goal finished(6, "interface of 1000 elements to the finished picture", 1.20,
                           [] {
                               return makeWorkers("1000 0 2", eDriver::Software, {Own, ImGui2, ImGui3});
                           });
const bench::Goal inspector(16, "inspector of 1000 bound controls, beside 1000 plain elements", 1.5,
                            [] {
                                return makeWorkers("1000 0 0", eDriver::Null, {Bound, Own});
                            });
}
