#pragma once

#include <chrono>
#include <cstdio>

// The other end of a benchmark's pipe: for each line that comes, draws some frames and answers with the seconds of
// one of them, or of each of so many equal parts of it. `prepare` is called before each frame and does not count.
template <typename Prepare, typename Frame>
int serve(Prepare&& prepare, Frame&& frame, unsigned int partNum = 1)
{
    constexpr int FrameNum = 10;
    const auto draw = [&]
    {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        frame();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    for (int i = 0; i < FrameNum; ++i)
        draw();

    char line[16];
    while (std::fgets(line, sizeof(line), stdin))
    {
        double seconds = 0.0;
        for (int i = 0; i < FrameNum; ++i)
            seconds += draw();
        std::printf("=%.12f\n", seconds / FrameNum / partNum);
        std::fflush(stdout);
    }
    return 0;
}
