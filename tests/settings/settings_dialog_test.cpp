// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_dialog.h"

#include "settings/settings_desk.h"
#include "settings/settings_store_qt.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

namespace kevra {
namespace {

/// The real dialog over the real store.
class SettingsDialogTest : public testing::Test {
protected:
    SettingsDialogTest()
    {
        store.deleteSetting(settingsApplication);
        desk.files.folders = {"/srv/web"};
        desk.files.files["/usr/bin/paint"] = "";
        desk.processes.runnable = {"/usr/bin/paint"};
        desk.load();
        dialog.showSettings();
    }

    template <class Widget> Widget &control(const char *name) { return *dialog.findChild<Widget *>(name); }
    void click(const char *name) { QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton); }
    void type(const char *name, const QString &text, const char *button)
    {
        control<QLineEdit>(name).clear();
        QTest::keyClicks(&control<QLineEdit>(name), text);
        click(button);
    }
    void pick(const char *name, const QString &text, const char *button)
    {
        auto &box = control<QComboBox>(name);
        box.setCurrentIndex(box.findText(text));
        click(button);
    }
    std::pair<QString, QColor> lamp(const char *name)
    {
        const auto &label = control<QLabel>(name);
        return {label.text(), label.palette().color(QPalette::Window)};
    }

    SettingsStoreQt store;
    SettingsDesk desk{store};
    SettingsDialog dialog{desk.commands};
};

/// The next start of the program reads what this one stored.
struct NextStart {
    SettingsStoreQt store;
    SettingsDesk desk{store};
};

TEST_F(SettingsDialogTest, YesAndNoAreStoredShownAndReadByTheNextStart)
{
    using State = std::pair<bool, bool>; // of the program, and what its main window shows of it
    struct {
        const char *yes;
        const char *no;
        const char *lamp;
        const char *key;
        State (*state)(const SettingsDesk &);
    } const cases[] = {
        {"bfsoyes", "bfsono", "zpop", "iffso",
            [](const auto &d) { return State(d.document.fsoMenu, d.views.toolView.fsoMenu); }},
        {"byesdoif", "bnodoif", "zif", "ifif",
            [](const auto &d) { return State(d.document.ifChecking, d.options.zif); }},
        {"bautoyes", "bautono", "zauto", "autosave",
            [](const auto &d) { return State(d.views.timerMinutes == 5, d.views.toolView.autosave); }},
        {"byesdebug", "bnodebug", "zldebug", "ifdebug",
            [](const auto &d) { return State(d.document.lineDebugOn, d.views.toolView.lineDebugging); }},
        {"byescoms", "bnocoms", "zcom", "ifcoms",
            [](const auto &d) { return State(d.document.snippetComments, d.options.zcom); }},
        {"byescol", "bnocol", "zcol", "ifcolor",
            [](const auto &d) { return State(d.document.colourCoding, d.views.toolView.colourCoding); }},
    };
    pick("boxtime", "5", "btime");
    for (const auto &c : cases) {
        for (const bool on : {false, true, false}) {
            SCOPED_TRACE(on ? c.yes : c.no);
            click(on ? c.yes : c.no);
            EXPECT_EQ(store.getSetting("kevra285", "settings", c.key, "absent"), on ? "yes" : "no");
            EXPECT_EQ(lamp(c.lamp),
                (std::pair<QString, QColor>(on ? "YES" : "NO", on ? QColor(0, 240, 0) : QColor(248, 0, 0))));
            NextStart next;
            EXPECT_EQ(c.state(desk), State(on, on));
            EXPECT_EQ(c.state(next.desk), State(on, on));
            for (const auto *program : {&desk, &next.desk})
                EXPECT_EQ(program->document.lineDebugPreferred, program->document.lineDebugOn);
        }
    }
    EXPECT_TRUE(desk.messages.shown.empty());
}

TEST_F(SettingsDialogTest, EntriesAreAppliedStoredAndReadByTheNextStart)
{
    type("ttemp", "/srv/web/", "btemp");
    pick("boxtime", "20", "btime");
    pick("boxface", "Tahoma", "bface");
    pick("boxsize", "12", "bsize");
    desk.colourDialog.chosen = Colour{0x0080FF};
    EXPECT_FALSE(control<QPushButton>("bapply").isEnabled());
    click("bpick");
    EXPECT_EQ(control<QFrame>("piccol").palette().color(QPalette::Window), QColor(255, 128, 0));
    click("bapply");
    EXPECT_FALSE(control<QPushButton>("bapply").isEnabled());
    desk.fileDialogs.choices = {"/usr/bin/paint"};
    click("bbrowse");
    click("bapset");
    type("tmenu", "P&aint", "bmenuset");

    NextStart next;
    for (const auto *program : {&desk, &next.desk}) {
        EXPECT_EQ(program->application.tempFolder, "/srv/web");
        EXPECT_EQ(program->application.autosaveMinutes, 20);
        EXPECT_EQ(program->document.fontFace, "Tahoma");
        EXPECT_EQ(program->document.fontSize, "12");
        EXPECT_EQ(program->document.codeColour, Colour{0x0080FF});
        EXPECT_EQ(program->application.programPath, "/usr/bin/paint");
        EXPECT_EQ(program->views.toolView.programMenu, "P&aint");
    }
    EXPECT_EQ(desk.effects.done, std::vector<std::string>{"colour"});
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(desk.effects.done.back(), "font");

    dialog.showSettings();
    click("bremove");
    EXPECT_EQ(NextStart().desk.application.programPath, "none");
    EXPECT_EQ(control<QLineEdit>("tap").text(), "");
    EXPECT_EQ(control<QLineEdit>("tmenu").text(), "EXE");
}

TEST_F(SettingsDialogTest, StoredValuesThatNoListHasAreShown)
{
    dialog.close();
    writeSetting(store, keys::autosaveMinutes, "7");
    writeSetting(store, keys::fontFace, "DejaVu Sans Mono");
    writeSetting(store, keys::fontSize, "11");
    desk.load();
    dialog.showSettings();
    const auto shown = [&](const char *box) { return control<QComboBox>(box).currentText().toStdString(); };
    EXPECT_EQ(shown("boxtime") + shown("boxface") + shown("boxsize"), "7DejaVu Sans Mono11");
    EXPECT_EQ(control<QComboBox>("boxtime").itemText(5), "7") << "between 5 and 10";
}

TEST_F(SettingsDialogTest, TabFollowsTheEye)
{
    constexpr int sameRow = 12; // pixels
    auto *const first = &control<QPushButton>("bfsoyes");
    QPoint last;
    int seen = 0;
    for (QWidget *at = first; at != first || seen == 0; at = at->nextInFocusChain()) {
        if (!(at->focusPolicy() & Qt::TabFocus) || !at->isVisibleTo(&dialog))
            continue;
        const auto place = at->mapTo(&dialog, at->rect().center());
        EXPECT_TRUE(
            place.y() > last.y() + sameRow || (place.x() > last.x() && place.y() > last.y() - sameRow))
            << at->objectName().toStdString();
        last = place;
        ++seen;
    }
    EXPECT_EQ(seen, 6 * 2 + 6 * 2 + 4 + 1) << "yes and no, entries, four lone buttons, close";
}

} // namespace
} // namespace kevra
