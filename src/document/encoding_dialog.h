// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/character_sets.h"

#include <QtWidgets/QDialog>

#include <optional>

class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace kevra {

/// Chooses a character set from a grouped list with a filter above it.
class EncodingDialog : public QDialog {
public:
    EncodingDialog(const QString &title, Encoding current, QWidget *parent);

    [[nodiscard]] std::optional<Encoding> chosen() const;

private:
    void fill(Encoding current);
    void filter(const QString &text);
    bool eventFilter(QObject *watched, QEvent *event) override;

    QLineEdit *m_filter;
    QTreeWidget *m_list;
    QPushButton *m_ok;
};

} // namespace kevra
