// SPDX-License-Identifier: GPL-3.0-or-later
// The main window `fedit`: the document, its tools and menus. It decides nothing about commands.
#pragma once

#include "app/command_registry.h"
#include "app/status_row_panel.h"
#include "app/tool_sets.h"
#include "desktop/main_view.h"
#include "settings/settings_persistence.h"

#include <QtWidgets/QMainWindow>

#include <array>
#include <functional>
#include <memory>

class QFrame;
class QLineEdit;

namespace kevra {

class EditorControl;
class FocusRound;
class FontFrame;
class LineNumberColumn;
class MainMenu;
class ToolBar;

/// The items that are enabled only when they would have an effect.
inline constexpr std::array<std::string_view, 7> editItems{
    "mundo", "mredo", "mcut", "mcopy", "mpaste", "mselall", "mclear"};

class MainWindow : public QMainWindow, public MainView, public ShellView, public WindowPlacement {
    Q_OBJECT

public:
    /// Shows `control`, which is `t1`, from now on.
    MainWindow(const CommandRegistry &commands, std::unique_ptr<EditorControl> control);

    [[nodiscard]] EditorControl &control() { return *m_control; } ///< `t1`
    [[nodiscard]] EditorControl &lineNumbers() { return *m_lineNumbers; } ///< `t2`
    [[nodiscard]] FontFrame &fonts() { return *m_fonts; }
    [[nodiscard]] MainMenu &menus() { return *m_menus; }
    [[nodiscard]] ToolBar &toolBar() { return *m_toolBar; }
    /// Frame1, Frame2, frscript1, frscript2, fr1, frcol or frfindings: empty until their subsystem fills
    /// them.
    [[nodiscard]] QFrame &frame(const QString &name);
    /// Enables the items and buttons with a bound command, and disables the others.
    void enableBoundCommands();
    void addFocusPart(QWidget &part); ///< F6 goes to it as well
    /// Call when the contents of the frames have changed.
    void arrange();

    void setInformation(std::string_view text) override;
    [[nodiscard]] QString information() const; ///< what the box shows
    void setTitlePath(std::string_view path) override;
    /// Of the file that the shown text belongs to, saved or recovered; empty for new work.
    [[nodiscard]] const std::string &titlePath() const { return m_titlePath; }
    void redrawAndFocus() override;
    void syncLineNumbers() override;
    void showNote(std::string_view text) override;
    void refreshDocumentStatus() override;
    /// Sets where the document's encoding, line ends and saved state are read from.
    void setStatusSource(std::function<FileStatus()> source) { m_statusSource = std::move(source); }
    [[nodiscard]] StatusRow &statusRow() { return *m_status; }
    /// Adds a window that shows the document's path in its caption as this one does.
    void addTitled(QWidget *window);

    void setControlVisible(std::string_view control, bool visible) override;
    void setItemVisible(std::string_view item, bool visible) override;
    void setItemChecked(std::string_view item, bool checked) override;
    void setItemCaption(std::string_view item, std::string_view caption) override;
    void setButtonVisible(int number, bool visible) override;
    void setButtonImage(int number, int image) override;

    [[nodiscard]] kevra::WindowState windowState() const override;
    [[nodiscard]] TwipRect normalGeometry() const override;
    [[nodiscard]] TwipRect innerArea() const override;
    void maximise() override;
    void placeNormal(const TwipRect &geometry) override;

signals:
    /// Closed by its frame or the desktop. The window stays until the program ends.
    void closeRequested();
    /// The window is visible at the position and size that the desktop gives it.
    void placed();
    void fileDropped(const std::string &path);
    /// In one of the program's own lists of files.
    void listedFileChosen(const std::string &path);
    /// The document has been given a path, by opening or saving.
    void documentNamed();

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createControls();
    void connectDocument();
    void textChanged();
    void showCaretPlace();
    void showCounts();
    void showWhatCanBeDone();
    /// Queries the clipboard, for which another program may have to respond.
    void showWhetherTextCanBePasted();
    /// The position was chosen before the desktop had given the window its frame.
    void keepFrameOnScreen();
    [[nodiscard]] bool takesDrop(QEvent &event);

    QWidget *m_inner;
    EditorControl *m_control;
    EditorControl *m_lineNumbers;
    FontFrame *m_fonts;
    QLineEdit *m_information;
    StatusRow *m_status;
    ToolBar *m_toolBar;
    MainMenu *m_menus;
    LineNumberColumn *m_column;
    FocusRound *m_focusRound;
    std::function<FileStatus()> m_statusSource;
    QList<QWidget *> m_titled;
    std::string m_titlePath;
    QString m_title; ///< as it was last set; empty before a document has been
    bool m_restored = false; ///< to a stored position, and not shown there yet
    std::array<bool, editItems.size()> m_possible{}; ///< the state that the items show
    bool m_pasteable = true; ///< assumed until the clipboard is queried
};

} // namespace kevra
