// SPDX-License-Identifier: GPL-3.0-or-later
// The main window `fedit`: the document, its tools and menus. It shows and hands over; what a command does is
// decided elsewhere.
#pragma once

#include "app/command_registry.h"
#include "app/status_row_panel.h"
#include "app/tool_sets.h"
#include "desktop/main_view.h"
#include "settings/stored_settings.h"

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

/// The items that are enabled only when they can act.
inline constexpr std::array<std::string_view, 7> editItems{
    "mundo", "mredo", "mcut", "mcopy", "mpaste", "mselall", "mclear"};

class MainWindow : public QMainWindow, public MainView, public ShellView, public WindowPlacement {
    Q_OBJECT

public:
    /// `document` is `t1`; it is shown here from now on.
    MainWindow(const CommandRegistry &commands, std::unique_ptr<EditorControl> document);

    [[nodiscard]] EditorControl &document() { return *m_document; } ///< `t1`
    [[nodiscard]] EditorControl &lineNumbers() { return *m_lineNumbers; } ///< `t2`
    [[nodiscard]] FontFrame &fonts() { return *m_fonts; }
    [[nodiscard]] MainMenu &menus() { return *m_menus; }
    [[nodiscard]] ToolBar &toolBar() { return *m_toolBar; }
    /// Frame1, Frame2, frscript1, frscript2, fr1, frcol or frfindings: empty until their subsystem fills
    /// them.
    [[nodiscard]] QFrame &frame(const QString &name);
    /// Items and buttons whose command is bound are enabled, the others are not.
    void enableBoundCommands();
    void addFocusPart(QWidget &part); ///< F6 goes to it as well
    /// The frames have got their contents, or new ones.
    void layOut();

    void setInformation(std::string_view text) override;
    [[nodiscard]] QString information() const; ///< what the box shows
    void setTitlePath(std::string_view path) override;
    void redrawAndFocus() override;
    void syncLineNumbers() override;
    void tell(std::string_view text) override;
    void refreshDocumentStatus() override;
    /// Who knows the document's encoding, line ends and whether it is saved.
    void setStatusSource(std::function<DocumentStatus()> source) { m_statusSource = std::move(source); }
    [[nodiscard]] StatusRow &statusRow() { return *m_status; }
    /// Another window that carries the document's path in its caption as this one does.
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
    /// By the frame or the desktop. The window stays until the program ends.
    void closeRequested();
    /// It has been shown, and has the place and size that the desktop gives it.
    void placed();
    void fileDropped(const std::string &path);
    /// In a list of files that were opened or searched here.
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
    /// Asks the clipboard, which another program may have to answer for.
    void showWhetherTextCanBePasted();
    /// The place was chosen before the desktop had given the window its frame.
    void keepFrameOnScreen();
    [[nodiscard]] bool takesDrop(QEvent &event);

    QWidget *m_inner;
    EditorControl *m_document;
    EditorControl *m_lineNumbers;
    FontFrame *m_fonts;
    QLineEdit *m_information;
    StatusRow *m_status;
    ToolBar *m_toolBar;
    MainMenu *m_menus;
    LineNumberColumn *m_column;
    FocusRound *m_focusRound;
    std::function<DocumentStatus()> m_statusSource;
    QList<QWidget *> m_titled;
    QString m_title; ///< as it was last set; empty before a document has been
    bool m_restored = false; ///< to a stored place, and not shown there yet
    std::array<bool, editItems.size()> m_possible{}; ///< what the items have been told
    bool m_pasteable = true; ///< as long as nobody has asked
};

} // namespace kevra
