// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settings_persistence.h"

#include <QtWidgets/QFrame>

class QComboBox;

namespace kevra {

/// The frame `frtbar` with the face box `comface` and the size box `comfsize`.
class FontFrame : public QFrame, public FontBoxes {
    Q_OBJECT

public:
    explicit FontFrame(QWidget *parent = nullptr);

    void selectFace(int position) override;
    void selectSize(int position) override;
    [[nodiscard]] std::string face() const override;
    [[nodiscard]] std::string size() const override;

signals:
    void fontChosen();
    /// The list was closed, with or without a choice.
    void listClosed();

private:
    QComboBox *m_face;
    QComboBox *m_size;
};

} // namespace kevra
