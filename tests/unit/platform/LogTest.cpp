// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include "tests/support/LogCapture.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <future>
#include <string>

namespace zamber {

namespace {

using namespace std::chrono_literals;

std::string logged(std::string_view line) {
    LogCapture log;
    logLine(line);
    return log.take();
}

/// Standard output is another file until the end of the test.
class Redirection {
public:
    explicit Redirection(int descriptor)
        : m_before(dup(STDOUT_FILENO)) {
        dup2(descriptor, STDOUT_FILENO);
    }
    ~Redirection() {
        dup2(m_before, STDOUT_FILENO);
        close(m_before);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

private:
    int m_before;
};

struct Ends {
    int reader = -1;
    int writer = -1;
    ~Ends() {
        close(reader);
        close(writer);
    }
};

Ends pipeOfOnePage() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    EXPECT_GE(fcntl(ends[1], F_SETPIPE_SZ, 4096), 4096);
    return {.reader = ends[0], .writer = ends[1]};
}

Ends socketPair() {
    std::array<int, 2> ends{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    return {.reader = ends[0], .writer = ends[1]};
}

Ends terminal() {
    Ends ends;
    EXPECT_EQ(openpty(&ends.reader, &ends.writer, nullptr, nullptr, nullptr), 0);
    return ends;
}

/// Reads whatever is there, so that a writer that waits can go on.
std::string drain(int descriptor) {
    std::string text;
    std::array<char, 65536> buffer{};
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    for (ssize_t count = 0; (count = read(descriptor, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

/// Whether that many lines are written within a bound, though the pipe is not read.
bool returnsThough(const Ends& output, const std::string& line, int count = 100) {
    const Redirection redirection(output.writer);
    auto done = std::async(std::launch::async, [&] {
        for (int i = 0; i < count; ++i) {
            logLine(line);
        }
    });
    const bool isDone = done.wait_for(10s) == std::future_status::ready;
    while (done.wait_for(1ms) != std::future_status::ready) {
        drain(output.reader);
    }
    return isDone;
}

} // namespace

TEST(Log, EachCallIsOneLineAtOnce) {
    LogCapture log;
    logLine("✅ one");
    logLine("");
    EXPECT_EQ(log.take(), "✅ one\n\n");
}

TEST(Log, ALineBreakInANameMakesNoSecondLine) {
    EXPECT_EQ(logged("🔵 Pasting into: two\nlines"), "🔵 Pasting into: two␊lines\n");
    EXPECT_EQ(logged("\u2028 \u2029 \r"), "<U+2028> <U+2029> ␍\n");
}

TEST(Log, ControlCharactersAreVisible) {
    EXPECT_EQ(logged("\x1b[31mred\x07\x7f\t"), "␛[31mred␇␡␉\n");
    EXPECT_EQ(logged(std::string_view("a\0b", 3)), "a␀b\n");
    EXPECT_EQ(logged("\u0085 \u009b31m"), "<U+0085> <U+009B>31m\n");
    EXPECT_EQ(logged("\u00a0é€😀"), "\u00a0é€😀\n");
}

TEST(Log, BytesThatAreNoTextStayOneLine) {
    const std::string line = logged("\xff\xc3\n\xe2\x90");
    EXPECT_EQ(line, "\xff\xc3␊\xe2\x90\n");
}

TEST(Log, ALineUpToTheBoundIsWholeAndALongerOneIsCut) {
    const std::string whole(LONGEST_LOG_LINE - 1, 'x');
    EXPECT_EQ(logged(whole), whole + "\n");
    EXPECT_EQ(logged(whole + "x"), std::string(LONGEST_LOG_LINE - 4, 'x').append("…\n"));
    EXPECT_EQ(logged(std::string(1'000'000, 'x')).size(), LONGEST_LOG_LINE);
}

TEST(Log, ALineIsCutBetweenCharacters) {
    std::string emoji;
    while (emoji.size() < 2 * LONGEST_LOG_LINE) {
        emoji += "😀";
    }
    const std::string line = logged("x" + emoji);
    EXPECT_LE(line.size(), LONGEST_LOG_LINE);
    EXPECT_GT(line.size(), LONGEST_LOG_LINE - 8);
    EXPECT_EQ((line.size() - 1 - std::string("…\n").size()) % 4, 0U);
    EXPECT_TRUE(line.ends_with("😀…\n"));
    EXPECT_LE(logged(std::string(5000, '\x1b')).size(), LONGEST_LOG_LINE) << "what is written for it counts";
}

TEST(Log, APipeThatNobodyReadsDoesNotHoldTheProgramUp) {
    const Ends pipe = pipeOfOnePage();
    EXPECT_TRUE(returnsThough(pipe, "short"));
    EXPECT_TRUE(returnsThough(pipe, std::string(200'000, 'x')));
}

TEST(Log, ASocketThatNobodyReadsDoesNotHoldTheProgramUp) {
    const Ends socket = socketPair();
    EXPECT_TRUE(returnsThough(socket, std::string(200'000, 'x'), 1000));
}

TEST(Log, ATerminalThatIsStoppedDoesNotHoldTheProgramUp) {
    const Ends stopped = terminal();
    tcflow(stopped.writer, TCOOFF);
    EXPECT_TRUE(returnsThough(stopped, "short"));
    tcflow(stopped.writer, TCOON);
}

TEST(Log, ATerminalThatNobodyReadsDoesNotHoldTheProgramUp) {
    const Ends silent = terminal();
    EXPECT_TRUE(returnsThough(silent, std::string(3000, 'x')));
}

TEST(Log, ALineThatHasNoRoomInAPipeIsLeftOutWhole) {
    const Ends pipe = pipeOfOnePage();
    const std::string line(3000, 'x');
    EXPECT_TRUE(returnsThough(pipe, line, 2));
    EXPECT_EQ(drain(pipe.reader), line + "\n");
    EXPECT_TRUE(returnsThough(pipe, "then", 1));
    EXPECT_EQ(drain(pipe.reader), "then\n");
}

TEST(Log, WhoeverSharesTheOutputWritesToItAsBefore) {
    const Ends pipe = pipeOfOnePage();
    const int flags = fcntl(pipe.writer, F_GETFL);
    EXPECT_TRUE(returnsThough(pipe, "line", 1));
    EXPECT_EQ(fcntl(pipe.writer, F_GETFL), flags);
}

} // namespace zamber
