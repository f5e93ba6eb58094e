// SPDX-License-Identifier: GPL-3.0-or-later
#include "lsp/text_document.h"

#include <random>

using namespace kevra;
using namespace kevra::lsp;

namespace {

/// A client that keeps its text as characters and finds places by counting from the start.
struct Client {
    std::u32string text;

    static std::string utf8(std::u32string_view characters)
    {
        std::string out;
        for (const char32_t c : characters) {
            const auto tail = [&](unsigned shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
            if (c < 0x80)
                out += static_cast<char>(c);
            else if (c < 0x800)
                out += static_cast<char>(0xC0 | c >> 6), tail(0);
            else if (c < 0x10000)
                out += static_cast<char>(0xE0 | c >> 12), tail(6), tail(0);
            else
                out += static_cast<char>(0xF0 | c >> 18), tail(12), tail(6), tail(0);
        }
        return out;
    }

    [[nodiscard]] bool splitsLineEnd(std::size_t at) const
    {
        return at > 0 && at < text.size() && text[at - 1] == U'\r' && text[at] == U'\n';
    }

    [[nodiscard]] Position position(std::size_t at, PositionUnit unit) const
    {
        Position position;
        for (std::size_t i = 0; i < at; ++i) {
            const bool ends = text[i] == U'\n' || (text[i] == U'\r' && !splitsLineEnd(i + 1));
            const auto width = unit == PositionUnit::Utf8         ? utf8(text.substr(i, 1)).size()
                : unit == PositionUnit::Utf16 && text[i] > 0xFFFF ? 2
                                                                  : 1;
            position = ends ? Position{position.line + 1, 0}
                            : Position{position.line, position.character + static_cast<Offset>(width)};
        }
        return position;
    }
};

TEST(TextDocument, HoldsTheTextOfTheClient)
{
    // Another seed: --gtest_shuffle --gtest_repeat=100 --gtest_filter=TextDocument*
    std::mt19937 random(GTEST_FLAG_GET(shuffle)
            ? static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed())
            : 1);
    const auto upTo = [&](std::size_t most) { return random() % (most + 1); };
    constexpr std::u32string_view characters = U"ab \r\n\nä€😀";
    for (int sequence = 0; sequence < 100; ++sequence) {
        const auto unit = static_cast<PositionUnit>(random() % 3);
        Client client;
        TextDocument server("", unit);
        for (int edit = 0; edit < 40; ++edit) {
            auto from = upTo(client.text.size());
            auto to = std::min(from + upTo(6), client.text.size());
            from -= client.splitsLineEnd(from);
            to += client.splitsLineEnd(to);
            std::u32string typed;
            for (auto count = upTo(8); count > 0; --count)
                typed += characters[upTo(characters.size() - 1)];
            const auto start = server.offsetAt(client.position(from, unit));
            const auto end = server.offsetAt(client.position(to, unit));
            server.replace({start, end}, Client::utf8(typed));
            client.text.replace(from, to - from, typed);
            ASSERT_EQ(server.text(), Client::utf8(client.text));
            const auto place = upTo(client.text.size());
            if (client.splitsLineEnd(place))
                continue;
            const auto before = Client::utf8(std::u32string_view(client.text).substr(0, place));
            ASSERT_EQ(server.positionAt(static_cast<Offset>(before.size())), client.position(place, unit));
        }
    }
}

TEST(TextDocument, TakesPlacesThatDoNotExist)
{
    const TextDocument document("a😀\r\nb", PositionUnit::Utf16);
    EXPECT_EQ(document.offsetAt({0, 2}), 1); // the middle of a pair
    EXPECT_EQ(document.offsetAt({0, 99}), 5);
    EXPECT_EQ(document.offsetAt({1, 99}), 8);
    EXPECT_EQ(document.offsetAt({99, 0}), 8);
}

} // namespace
