// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as users and scripts find it: by the names of its controls.
#include "app/main_window.h"

#include "app/commands.h"
#include "app/font_frame_panel.h"
#include "app/main_menu_qt.h"
#include "app/tool_bar_qt.h"
#include "desktop/text_qt.h"
#include "desktop/window_geometry_qt.h"
#include "document/notice_bar_panel.h"
#include "editor/control_layout_qt.h"
#include "editor/editor_control_qt.h"
#include "fakes/document_state.h"
#include "fakes/modal.h"
#include "widgets/named_qt.h"

#include <QtTest/QtTest>

#include <gtest/gtest.h>

namespace kevra {
namespace {

struct Shown {
    CommandRegistry commands;
    QStringList ran;
    std::unique_ptr<MainWindow> window;
    FakeDocumentState state;
    std::unique_ptr<ToolSets> tools;

    Shown()
    {
        for (const auto &row : menuRows())
            if (!row.item.empty())
                commands.bind(row.item, [this, item = textOf(row.item)] { ran << item; });
        commands.bind("bview", [this] { ran << "bview"; });
        window = std::make_unique<MainWindow>(
            commands, std::unique_ptr<EditorControl>(named<EditorControl>("t1", nullptr, "Document")));
        tools = std::make_unique<ToolSets>(
            EditedDocument{window->control(), state}, window->lineNumbers(), *window, window->fonts());
        window->resize(1000, 700);
        window->enableBoundCommands();
        window->show();
        QCoreApplication::processEvents();
    }

    template <typename T> T *find(const char *name) const { return window->findChild<T *>(name); }
};

TEST(MainWindow, MenusHoldTheirItems)
{
    Shown s;
    const auto namesIn = [](const QList<QAction *> &actions) {
        QStringList names;
        for (const auto *action : actions)
            if (!action->isSeparator())
                names << (action->menu() ? action->menu()->objectName() : action->objectName());
        return names.join(' ').toStdString();
    };
    EXPECT_EQ(namesIn(s.window->menuBar()->actions()), "mfile medit moptions mdebug mimops mex mabout mhelp");
    EXPECT_EQ(namesIn(s.find<QMenu>("mdebug")->actions()),
        "mdodebug mnodebug mrundebug mfindings mnextfinding mprevfinding mfix manalysetyping");
    EXPECT_EQ(s.find<QMenu>("mpopfso")->actions().size(), 19);
}

TEST(MainWindow, EveryItemRunsItsCommandOnce)
{
    Shown s;
    for (const auto &row : menuRows()) {
        if (row.item.empty())
            continue;
        auto *action = s.window->menus().action(row.item);
        if (action->menu())
            continue;
        action->setEnabled(true);
        s.ran.clear();
        const bool checked = action->isChecked();
        action->trigger();
        EXPECT_EQ(s.ran.join(' ').toStdString(), row.command.empty() ? row.item : row.command);
        EXPECT_EQ(action->isChecked(), checked) << "the command decides about the mark: " << row.item;
    }
    for (const auto &row : toolRows()) {
        if (row.button.empty())
            continue;
        s.ran.clear();
        auto *button = s.find<QToolButton>(row.button.data());
        button->defaultAction()->setEnabled(true);
        button->click();
        EXPECT_EQ(s.ran.join(' ').toStdString(), row.item);
        EXPECT_TRUE(row.button != "saveb" || row.item == "msaveas") << "the button always asks for a name";
    }
    s.ran.clear();
    QTest::keyClick(s.window.get(), Qt::Key_F5);
    EXPECT_EQ(s.ran.join(' '), "bview");
}

TEST(MainWindow, EditItemsAreEnabledWhenTheyCanAct)
{
    Shown s;
    auto &document = s.window->control();
    const auto enabled = [&] {
        QStringList items;
        for (const auto item : editItems)
            if (s.window->menus().action(item)->isEnabled())
                items << textOf(item);
        return items.join(' ').toStdString();
    };
    QApplication::setActiveWindow(s.window.get());
    QGuiApplication::clipboard()->setImage(QImage(1, 1, QImage::Format_RGB32));
    EXPECT_EQ(enabled(), "");
    QGuiApplication::clipboard()->setText("text");
    EXPECT_EQ(enabled(), "mpaste");
    document.paste();
    EXPECT_EQ(enabled(), "mundo mpaste mselall mclear");
    document.selectAll();
    EXPECT_EQ(enabled(), "mundo mcut mcopy mpaste mselall mclear");
    EXPECT_TRUE(s.find<QToolButton>("copyb")->isEnabled() && s.find<QAction>("popcut")->isEnabled());
    document.undo();
    EXPECT_EQ(enabled(), "mredo mpaste");
    document.redo();
    document.selectAll();
    document.setReadOnly(true);
    EXPECT_EQ(enabled(), "mcopy mselall");
    EXPECT_FALSE(s.find<QToolButton>("pasteb")->isEnabled());
}

TEST(MainWindow, EachToolSetShowsItsOwn)
{
    Shown s;
    const std::vector<const char *> web{"Frame1", "colfindb", "viewimb"};
    const std::vector<const char *> script{
        "t2", "tline", "tcolumn", "tcount", "tlcount", "frscript1", "debugb", "lineyesb", "linenob"};
    const auto expectShown = [&](bool scriptTools) {
        QCoreApplication::processEvents();
        for (const auto *name : script)
            EXPECT_EQ(s.find<QWidget>(name)->isVisible(), scriptTools) << name;
        for (const auto *name : web)
            EXPECT_EQ(s.find<QWidget>(name)->isVisible(), !scriptTools) << name;
        for (const auto *name : {"Frame2", "frscript2"})
            EXPECT_FALSE(s.find<QWidget>(name)->isVisible()) << name;
        for (const auto *item : {"mdebug", "mmsgboxref"})
            EXPECT_EQ(s.window->menus().action(item)->isVisible(), scriptTools) << item;
        for (const auto *item : {"mimops", "mex", "mcolorfind", "mtemplate"})
            EXPECT_EQ(s.window->menus().action(item)->isVisible(), !scriptTools) << item;
        EXPECT_EQ(s.find<QAction>("mscrshow")->isChecked(), scriptTools);
        EXPECT_EQ(s.find<QAction>("mwebback")->isChecked(), !scriptTools);
    };
    s.tools->showScriptTools();
    expectShown(true);
    s.tools->showWebTools();
    expectShown(false);
}

TEST(MainWindow, ResizingLaysOutByTheTwip)
{
    Shown s;
    s.window->resize(s.window->minimumSizeHint().expandedTo({50, 50}));
    s.window->resize(1000, 700);
    const auto inner = s.find<QWidget>("inner")->size();
    EXPECT_EQ(s.window->control().geometry(), QRect(29, 52, inner.width() * 94 / 100, inner.height() - 85));
    EXPECT_EQ(s.find<QWidget>("frtbar")->geometry().right() + 1, inner.width());
    EXPECT_EQ(s.find<QWidget>("tinfo")->geometry().right() + 1, s.find<QWidget>("frtbar")->x());
}

TEST(MainWindow, ClosingIsAskedForAndNeverDone)
{
    Shown s;
    QSignalSpy asked(s.window.get(), &MainWindow::closeRequested);
    EXPECT_FALSE(s.window->close());
    EXPECT_EQ(asked.count(), 1);
    EXPECT_TRUE(s.window->isVisible());
}

TEST(MainWindow, CaretPlaceCountsCharactersFromOne)
{
    Shown s;
    s.tools->showScriptTools();
    s.window->control().LoadText("Dim a\r\n'\xc3\xa9\xe2\x82\xac\tx");
    s.window->control().Select({7, 14});
    const auto text = [&](const char *name) { return s.find<QLineEdit>(name)->text().toStdString(); };
    EXPECT_EQ(text("tline") + ":" + text("tcolumn"), "2:5");
    EXPECT_EQ(text("tcount") + ", " + text("tlcount"), "12, 2");
}

TEST(MainWindow, StatusRowFitsANarrowWindow)
{
    Shown s;
    s.tools->showScriptTools();
    auto &row = *s.find<StatusRow>("frstatus");
    FileStatus status;
    status.saved = false;
    row.setDocumentStatus(status);
    for (const int width : {1280, 640}) {
        s.window->resize(width, 430);
        QCoreApplication::processEvents();
        for (const auto *label : row.findChildren<QLabel *>()) {
            if (label->isVisible() && label->objectName() != "tnotice") {
                EXPECT_GE(label->width(), label->minimumSizeHint().width())
                    << width << ": " << pathBytes(label->text());
            }
        }
    }
}

TEST(MainWindow, LineNumbersStayLevelHoweverTheTextScrolls)
{
    Shown s;
    s.tools->showScriptTools();
    std::string text;
    for (int line = 0; line < 300; ++line)
        text += std::string(line % 7 == 3 ? 400 : 5, 'x') + "\r\n";
    auto &t1 = s.window->control();
    t1.LoadText(text);
    const auto lineAtTop = [](EditorControl &control) {
        return control.SendScintilla(QsciScintillaBase::SCI_DOCLINEFROMVISIBLE,
            static_cast<unsigned long>(control.FirstVisibleLine()));
    };
    for (const int margin : {noWrapMargin, 0}) {
        SCOPED_TRACE(margin);
        t1.SetRightMargin(margin);
        for (const int line : {0, 3, 120, 250}) {
            t1.SetFirstVisibleLine(ControlLayout(t1).firstRow(line));
            s.window->syncLineNumbers();
            EXPECT_EQ(lineAtTop(s.window->lineNumbers()), line);
        }
        t1.verticalScrollBar()->setValue(40);
        QCoreApplication::processEvents();
        EXPECT_EQ(lineAtTop(s.window->lineNumbers()), lineAtTop(t1));
    }
}

TEST(MainWindow, TheNumbersOfALongScriptAreThoseOfItsLines)
{
    Shown s;
    s.tools->showScriptTools();
    auto &t1 = s.window->control();
    auto &t2 = s.window->lineNumbers();
    t1.LoadText(QString("x\r\n").repeated(30'000).toStdString());
    for (const auto &[line, number] : {std::pair(0, "01"), {98, "99"}, {9'999, "00"}, {29'950, "51"}}) {
        t1.SetFirstVisibleLine(line);
        s.window->syncLineNumbers();
        const auto start = t2.SendScintilla(
            QsciScintillaBase::SCI_POSITIONFROMLINE, static_cast<unsigned long>(t2.FirstVisibleLine()));
        EXPECT_EQ(t2.Text({start, start + 2}), number) << line;
    }
    EXPECT_LT(t2.lineCount(), t1.lineCount())
        << "a large script does not pay for its numbers as for its text";
}

TEST(MainWindow, ADroppedFileIsHandedOver)
{
    Shown s;
    QSignalSpy dropped(s.window.get(), &MainWindow::fileDropped);
    drop(*s.window->control().viewport(), {"/tmp/a page.htm"});
    ASSERT_EQ(dropped.count(), 1);
    EXPECT_EQ(dropped.first().first().value<std::string>(), "/tmp/a page.htm");
    EXPECT_EQ(s.window->control().TextLength(), 0) << "the path is not typed into the text";
}

TEST(MainWindow, TheKeyboardComesEverywhere)
{
    Shown s;
    s.window->frame("Frame1").show();
    auto *button = new QPushButton("P", &s.window->frame("Frame1"));
    button->show();
    const auto reached = [&](QWidget *from, const QKeyCombination &key) -> QWidget * {
        from->setFocus();
        QTest::keyClick(from, key.key(), key.keyboardModifiers());
        return QApplication::focusWidget();
    };
    auto *document = &s.window->control();
    auto *bar = reached(button, Qt::Key_F6);
    EXPECT_TRUE(s.window->findChild<QWidget *>("tbar")->isAncestorOf(bar));
    const struct {
        QWidget *from;
        QKeyCombination key;
        QWidget *to;
    } cases[] = {{document, Qt::Key_F6, button}, {bar, Qt::SHIFT | Qt::Key_F6, button},
        {bar, Qt::Key_F6, s.window->findChild<QWidget *>("comface")}, {button, Qt::Key_Escape, document},
        {button, Qt::SHIFT | Qt::Key_F6, document}};
    for (const auto &c : cases)
        EXPECT_EQ(reached(c.from, c.key), c.to) << c.from->objectName().toStdString();
}

TEST(WindowGeometry, StoredPlacesComeOntoAScreen)
{
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QRect stored : {QRect(-5000, -5000, 300, 300), QRect(90000, 10, 640, 480),
             QRect(0, 0, 99999, 99999), QRect(5, 5, 0, -8)}) {
        EXPECT_TRUE(screen.contains(onAScreen(stored))) << stored.x() << "," << stored.y();
        EXPECT_GE(onAScreen(stored).width(), std::min(320, screen.width()));
    }
    EXPECT_EQ(onAScreen({20, 30, 400, 300}), QRect(20, 30, 400, 300));
}

TEST(NoticeBar, GivesItsTextTheRoomThatIsLeft)
{
    QMainWindow window;
    window.resize(900, 200);
    NoticeBar bar("bar", "Title", window, {{"button", "Discard", "", [] {}}});
    bar.showText(std::string(300, 'x'));
    window.show();
    EXPECT_GT(bar.findChild<QLabel *>()->width(), 700);
    EXPECT_TRUE(bar.findChild<QPushButton *>()->isVisible());
}

} // namespace
} // namespace kevra
