// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <QtWidgets/QtWidgets>

#include <functional>

namespace kevra {

/// Runs `act` on the next modal dialog of this type as soon as it is open; `act` must close it.
template <typename Dialog> class WhenModal {
public:
    explicit WhenModal(std::function<void(Dialog &)> act)
    {
        QObject::connect(&m_clock, &QTimer::timeout, &m_clock, [this, act = std::move(act)] {
            if (auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget())) {
                m_clock.stop();
                act(*dialog);
            }
        });
        m_clock.start(1);
    }
    /// Whether such a dialog was opened.
    [[nodiscard]] bool came() const { return !m_clock.isActive(); }

private:
    QTimer m_clock;
};

/// Drops files as if they were to be moved.
inline void dropUrls(QWidget &target, const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted())
        return;
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "after a move the other program removes the files";
    QDropEvent dropped({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&target, &dropped);
}

inline void drop(QWidget &target, const QStringList &paths)
{
    QList<QUrl> urls;
    for (const auto &path : paths)
        urls << QUrl::fromLocalFile(path);
    dropUrls(target, urls);
}

} // namespace kevra
