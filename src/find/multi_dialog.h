// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/file_dialogs.h"
#include "find/multi_replace.h"

#include <QtWidgets/QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace kevra {

/// The dialog `fmulti`, modeless: the files, the request and the results. Files and folders can be dropped on
/// it.
class MultiDialog : public QDialog, private MultiView {
    Q_OBJECT

public:
    MultiDialog(FileStore &files, OpenDocument &open, Messages &messages, FileDialogs &dialogs,
        QWidget *parent = nullptr);

    [[nodiscard]] MultiReplace &commands() { return m_commands; }

signals:
    /// The user wants to see a line, from 1, of a listed file in the editor.
    void lineChosen(const std::string &path, qint64 line);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void reject() override;

private:
    [[nodiscard]] MultiRequest entered() const override;
    void showFiles(const std::vector<ListedFile> &files) override;
    void showFile(std::size_t index, const ListedFile &file) override;
    bool shouldContinue(std::size_t done, std::size_t total) override;
    void showSummary(const std::string &text) override;
    void showUndo(bool possible) override;
    void openChosen();
    void createControls();
    void createButtons();
    void arrange();
    void connectControls();
    void addFiles();
    void addFolder();
    /// Folders are replaced by their files that match the pattern.
    void add(const std::vector<std::string> &paths);
    bool continueListing(std::size_t found);
    /// Processes pending events. False when the running operation should stop.
    bool processEvents();
    void removeSelected();
    /// Runs `work` with every button and entry but Cancel disabled.
    void run(const std::function<void()> &work);
    QPushButton *button(const char *name, const char *caption, const char *tip);

    FileDialogs &m_dialogs;
    MultiReplace m_commands;
    QLineEdit *m_text;
    QLineEdit *m_replacement;
    QLineEdit *m_patterns;
    QCheckBox *m_case;
    QCheckBox *m_whole;
    QCheckBox *m_expression;
    QCheckBox *m_backup;
    QCheckBox *m_everyFolder;
    QTreeWidget *m_list;
    QProgressBar *m_progress;
    QLabel *m_summary;
    QPushButton *m_preview;
    QPushButton *m_replace;
    QPushButton *m_addFolder;
    QPushButton *m_addFiles;
    QPushButton *m_remove;
    QPushButton *m_open;
    QPushButton *m_cancel;
    QPushButton *m_undo;
    bool m_undoPossible = false;
    bool m_running = false;
    bool m_cancelled = false;
};

} // namespace kevra
