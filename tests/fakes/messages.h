// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/messages.h"

#include <deque>
#include <ostream>
#include <tuple>
#include <vector>

namespace kevra {

inline bool operator==(const Message &a, const Message &b)
{
    return std::tie(a.text, a.icon, a.buttons, a.title) == std::tie(b.text, b.icon, b.buttons, b.title);
}

inline void PrintTo(const Message &message, std::ostream *out)
{
    *out << message.title << ": " << message.text << ", icon " << static_cast<int>(message.icon)
         << ", buttons " << static_cast<int>(message.buttons);
}

/// Records the messages and returns the next of `answers`; with none left, the harmless answer.
class FakeMessages : public Messages {
public:
    Answer show(const Message &message) override
    {
        shown.push_back(message);
        if (answers.empty())
            return message.buttons == Buttons::Ok   ? Answer::Ok
                : message.buttons == Buttons::YesNo ? Answer::No
                                                    : Answer::Cancel;
        const auto answer = answers.front();
        answers.pop_front();
        return answer;
    }

    /// The texts shown so far, for a comparison in one line.
    [[nodiscard]] std::vector<std::string> texts() const
    {
        std::vector<std::string> all;
        for (const auto &message : shown)
            all.push_back(message.text);
        return all;
    }

    /// The text shown last; empty when there was none.
    [[nodiscard]] std::string last() const { return shown.empty() ? std::string() : shown.back().text; }

    std::deque<Answer> answers;
    std::vector<Message> shown;
};

} // namespace kevra
