#include "benchmarks/worker.h"

namespace
{
using bench::eDriver;
using Row = bench::sWorkerRow;

constexpr Row Own{"record, sort and replay", "own", ""};
constexpr Row SDLGeometry{"SDL RenderGeometry", "sdl", ""};
constexpr Row SDLCopy{"SDL RenderCopyF", "sdl", ""};
constexpr Row SFML{"SFML VertexArray", "sfml", ""};
constexpr Row Allegro{"Allegro, held bitmaps", "allegro", ""};
constexpr Row BareGL{"bare GL loop", "baregl", ""};

// Scenes are: sprites, textures, blend modes, levels, and whether to wait for the picture.
const bench::Goal sprites1(1, "1000 sprites of one texture, processor", 0.50,
                           [] {
                               return makeWorkers("1000 1 1 0 0", eDriver::Null, {Own, SFML, SDLGeometry});
                           });
const bench::Goal sprites10(1, "10000 sprites of one texture, processor", 0.50,
                            [] {
                                return makeWorkers("10000 1 1 0 0", eDriver::Null, {Own, SFML, SDLGeometry});
                            });
const bench::Goal sprites20(1, "20000 sprites of one texture, processor", 0.50,
                            [] {
                                return makeWorkers("20000 1 1 0 0", eDriver::Null, {Own, SFML, SDLGeometry});
                            });
const bench::Goal mixed(2, "10000 sprites of 8 textures and 2 blend modes in turn, processor", 0.75,
                        [] {
                            return makeWorkers("10000 8 2 0 0", eDriver::Null, {Own, SDLCopy});
                        });
const bench::Goal
    finished(3, "10000 sprites of 16x16 to the finished picture", 1.10,
             [] {
                 return makeWorkers("10000 1 1 0 1", eDriver::Software, {Own, SDLGeometry, SFML, Allegro});
             });
const bench::Goal plainLevels(4, "4000 one-quad draws in 48 random levels, processor, no change", 2.6,
                              [] {
                                  return makeWorkers("4000 1 1 1 0", eDriver::Null, {Own, BareGL});
                              });
const bench::Goal texturedLevels(4, "4000 one-quad draws in 48 random levels, processor, texture of 8", 1.6,
                                 [] {
                                     return makeWorkers("4000 8 1 1 0", eDriver::Null, {Own, BareGL});
                                 });
}
