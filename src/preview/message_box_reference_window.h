// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets/QDialog>

namespace kevra {

/// The numbers a script gives to MsgBox and gets from it, on a card: `fmsgref`.
class MessageBoxReferenceWindow : public QDialog {
public:
    explicit MessageBoxReferenceWindow(QWidget *parent = nullptr);
};

} // namespace kevra
