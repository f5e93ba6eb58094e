// SPDX-License-Identifier: GPL-3.0-or-later
// Message boxes: a fixed text, a fixed set of buttons and an icon, modal.
#pragma once

#include <string>

namespace kevra {

enum class Icon { None, Information, Question, Critical };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

struct Message {
    std::string text;
    Icon icon = Icon::Information;
    Buttons buttons = Buttons::Ok;
    std::string title = "KEVRA Editor";
    std::string details{}; ///< shown on demand
};

class Messages {
public:
    virtual ~Messages() = default;
    /// Shows the box and waits. Closing it any other way answers Cancel where there is one, else No, else Ok.
    virtual Answer show(const Message &message) = 0;

    void inform(std::string text) { show({std::move(text), Icon::Information}); }
    void stop(std::string text) { show({std::move(text), Icon::Critical}); }
    [[nodiscard]] bool yes(std::string text)
    {
        return show({std::move(text), Icon::Question, Buttons::YesNo}) == Answer::Yes;
    }
};

} // namespace kevra
