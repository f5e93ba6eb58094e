// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/main_view.h"

#include <string>

namespace kevra {

class FakeMainView : public MainView {
public:
    void setInformation(std::string_view text) override { information = text; }
    void setTitlePath(std::string_view path) override { titlePath = path; }
    void redrawAndFocus() override { }
    void syncLineNumbers() override { ++lineNumberSyncs; }
    void showNote(std::string_view text) override { status = text; }
    void refreshDocumentStatus() override { }

    std::string information = "(untouched)";
    std::string titlePath = "(untouched)";
    std::string status;
    int lineNumberSyncs = 0;
};

class FakeToolView : public ToolView {
public:
    void showScriptTools() override { ++scriptToolsShown; }
    void showWebTools() override { ++webToolsShown; }
    void showOption(Option option, bool on) override { options[option] = on; }
    void showProgramMenu(std::string_view text) override { programMenu = text; }

    int scriptToolsShown = 0;
    int webToolsShown = 0;
    OptionFlags options;
    std::string programMenu;
};

} // namespace kevra
