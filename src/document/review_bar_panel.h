// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets/QToolBar>

class QLabel;

namespace kevra {

/// The bar above the document while it shows a text of the last session.
class ReviewBar : public QToolBar {
    Q_OBJECT

public:
    explicit ReviewBar(QWidget *parent = nullptr);

    void setDescription(const QString &text);

signals:
    void saveChosen();
    void discardChosen();
    void laterChosen();

private:
    QLabel *m_description;
};

} // namespace kevra
