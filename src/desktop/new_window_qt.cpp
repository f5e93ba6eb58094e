// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/new_window_qt.h"

#include "desktop/process_start_qt.h"
#include "desktop/text_qt.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

namespace kevra {

bool openInNewWindow(const std::string &fileName, std::string_view bytes)
{
    QTemporaryDir folder; // accessible only to its owner
    const auto path = folder.filePath(pathText(fileName));
    QFile file(path);
    if (!folder.isValid() || !file.open(QFile::WriteOnly | QFile::NewOnly)
        || file.write(bytes.data(), std::ssize(bytes)) != std::ssize(bytes) || !file.flush())
        return false;
    // The new instance may save there.
    folder.setAutoRemove(
        !ProcessStartQt().start(pathBytes(QCoreApplication::applicationFilePath()), pathBytes(path)));
    return !folder.autoRemove();
}

} // namespace kevra
