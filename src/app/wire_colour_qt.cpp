// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/main_menu_qt.h"
#include "app/wiring_qt.h"
#include "colour/colour_commands.h"
#include "colour/typing_colouring.h"
#include "desktop/text_qt.h"
#include "editor/editor_control_qt.h"
#include "snippets/fso_popup_qt.h"
#include "snippets/snippet_commands.h"
#include "snippets/snippet_panel.h"

#include <QtWidgets/QFrame>
#include <QtWidgets/QToolButton>

#include <array>

namespace kevra {
namespace {

struct PanelSwitch {
    std::string_view button;
    SnippetPanel from;
    SnippetPanel to;
};

constexpr std::array panelSwitches{
    PanelSwitch{"bsw1", SnippetPanel::Web1, SnippetPanel::Web2},
    PanelSwitch{"bsw2", SnippetPanel::Web2, SnippetPanel::Web1},
    PanelSwitch{"bscrsw1", SnippetPanel::Script1, SnippetPanel::Script2},
    PanelSwitch{"bscrsw2", SnippetPanel::Script2, SnippetPanel::Script1},
};

void wireCommands(Application &app, Document &document)
{
    auto &colours = app.keep<ColourCommands>(document, app.toolSets());
    app.commands.bind("mcolcode", [&colours] { colours.colourOn(); });
    app.commands.bind("mnocolor", [&colours] { colours.colourOff(); });
    for (const auto &swap : panelSwitches) {
        app.commands.bind(swap.button, [&app, swap] {
            app.mainWindow().setControlVisible(frameName(swap.from), false);
            app.mainWindow().setControlVisible(frameName(swap.to), true);
        });
    }
}

void wireTyping(Application &app, WindowDocument &shown)
{
    auto &window = app.mainWindow();
    auto &typing = app.keep<TypingColouring>(shown.document, window, [&app](TextRange line) {
        if (app.checkFinishedLine)
            app.checkFinishedLine(line);
    });
    shown.control.setTypingHandler(&typing);
    app.keep<FsoPopup>(shown.control, shown.document.state, *window.menus().menu("mpopfso"));
}

} // namespace

void wireColour(Application &app, WindowDocument &shown)
{
    wireCommands(app, shown.document);
    wireTyping(app, shown);
}

void wireSnippetPanels(Application &app, WindowDocument &shown)
{
    auto &window = app.mainWindow();
    auto &snippetCommands = app.keep<SnippetCommands>(shown.document, window);
    const SnippetPanelHooks hooks{
        [&app, &snippetCommands](const Snippet &snippet) {
            if (snippet.insertion == Insertion::Command)
                app.commands.run(snippet.button);
            else
                snippetCommands.insert(snippet);
        },
        [&app] { return app.editorOptions.snippetComments; },
        [&app](std::string_view button) { return app.commands.isBound(button); },
    };
    for (const auto panel :
        {SnippetPanel::Web1, SnippetPanel::Web2, SnippetPanel::Script1, SnippetPanel::Script2})
        fillSnippetPanel(window.frame(textOf(frameName(panel))), panel, hooks);
    window.arrange();
    QObject::connect(&shown.control, &EditorControl::readOnlyChanged, &window, [&window](bool readOnly) {
        for (const auto &snippet : snippets()) {
            if (snippet.insertion != Insertion::Command)
                window.findChild<QToolButton *>(textOf(snippet.button))->setEnabled(!readOnly);
        }
    });
}

} // namespace kevra
