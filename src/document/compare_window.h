// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/disk_changes.h"

#include <QtWidgets/QDialog>

namespace kevra {

class ComparePanel;

/// Two texts side by side in their own window.
class CompareWindow : public QDialog {
    Q_OBJECT

public:
    explicit CompareWindow(QWidget *parent = nullptr);

    void showTexts(const TextsToCompare &texts);

private:
    ComparePanel *m_panel;
};

} // namespace kevra
