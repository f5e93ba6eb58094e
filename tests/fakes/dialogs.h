// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/file_dialogs.h"

#include <deque>

namespace kevra {

/// Each dialog returns the next of `choices`; with none left it is cancelled.
class FakeFileDialogs : public FileDialogs {
public:
    std::optional<std::string> openFile(const OpenRequest &request) override
    {
        openRequests.push_back(request);
        return next();
    }
    std::vector<std::string> openFiles(const OpenRequest &) override { return {}; }
    std::optional<SaveChoice> saveFile(const SaveRequest &request) override
    {
        saveRequests.push_back(request);
        const auto path = next();
        return path ? std::optional(SaveChoice{*path, request.filterIndex}) : std::nullopt;
    }
    std::optional<std::string> chooseFolder(const std::string &) override { return std::nullopt; }

    std::deque<std::string> choices;
    std::vector<OpenRequest> openRequests;
    std::vector<SaveRequest> saveRequests;

private:
    std::optional<std::string> next()
    {
        if (choices.empty())
            return std::nullopt;
        auto choice = choices.front();
        choices.pop_front();
        return choice;
    }
};

class FakeColourDialog : public ColourDialog {
public:
    std::optional<Colour> choose(Colour initial) override
    {
        initials.push_back(initial);
        return chosen;
    }

    std::optional<Colour> chosen; ///< empty: the dialog is cancelled
    std::vector<Colour> initials;
};

} // namespace kevra
