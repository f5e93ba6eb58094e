// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/framing.h"

using namespace kevra::lsp;

namespace {

std::string readAll(std::string_view bytes, std::size_t portion)
{
    FrameReader reader;
    std::string out;
    for (std::size_t at = 0; at < bytes.size(); at += portion) {
        reader.add(bytes.substr(at, portion));
        while (const auto frame = reader.next())
            out += frame->fault.empty() ? '<' + frame->content + '>' : "!";
    }
    return out;
}

TEST(Framing, SurvivesWhatIsNoMessage)
{
    const struct {
        const char *name;
        std::string bytes;
        const char *messages;
    } cases[] = {
        {"two messages", framed("a") + framed("bc"), "<a><bc>"},
        {"an empty one", framed("") + framed("b"), "<><b>"},
        {"more fields, other letters", "X: y\r\ncontent-length: 1\r\n\r\na", "<a>"},
        {"line feeds alone", "Content-Length: 1\n\nab", "<a>"},
        {"no length", "Content-Type: x\r\n\r\n" + framed("a"), "!<a>"},
        {"a length that is none", "Content-Length: -1\r\n\r\n" + framed("a"), "!<a>"},
        {"a length beyond all bounds", "Content-Length: 99999999999999\r\n\r\n" + framed("a"), "!<a>"},
        {"an endless header", std::string(4096, 'x') + framed("a"), "!<a>"},
        {"a message that is too long",
            "Content-Length: 999999999\r\n\r\n" + std::string(20'000, '{') + framed("a"), "!<a>"},
        {"cut off", "Content-Length: 9\r\n\r\nabc", ""},
    };
    for (const auto &c : cases) {
        for (const std::size_t portion : {1, 7, 10'000})
            EXPECT_EQ(readAll(c.bytes, portion), c.messages) << c.name << " in portions of " << portion;
    }
}

} // namespace
