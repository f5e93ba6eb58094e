// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/recovery_list.h"

#include <QtCore/QEventLoop>
#include <QtWidgets/QDialog>

class QDialogButtonBox;
class QPlainTextEdit;
class QTreeWidget;

namespace kevra {

/// The texts from earlier sessions, newest first, and the first lines of the chosen one.
class RecoveryListDialog : public QDialog, public RecoveryList {
    Q_OBJECT

public:
    explicit RecoveryListDialog(QWidget *parent);

    [[nodiscard]] RecoveryAnswer choose(std::span<const RecoveryRow> rows) override;
    void endList() override;

private:
    [[nodiscard]] QWidget *parts();
    [[nodiscard]] QDialogButtonBox *buttons();
    void fill(std::span<const RecoveryRow> rows);
    void showChosen();
    void finish(RecoveryChoice choice);

    QTreeWidget *m_list;
    QPlainTextEdit *m_beginning;
    QEventLoop m_waiting;
    RecoveryChoice m_choice = RecoveryChoice::Later;
};

} // namespace kevra
