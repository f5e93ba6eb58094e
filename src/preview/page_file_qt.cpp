// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_file_qt.h"

#include "desktop/text_qt.h"
#include "encoding/detection.h"
#include "storage/file_handle_posix.h"

#include <QtCore/QFile>
#include <QtCore/QMimeDatabase>
#include <fcntl.h>

namespace kevra {

PageFile openPageFile(const std::string &path)
{
    // By its bytes, which need not be a text, and without waiting when it is a pipe.
    const auto handle = openFile(path, O_RDONLY);
    struct stat status { };
    auto file = std::make_unique<QFile>();
    if (!handle || ::fstat(handle.get(), &status) != 0 || !S_ISREG(status.st_mode)
        || !file->open(::dup(handle.get()), QIODevice::ReadOnly, QFile::AutoCloseHandle))
        return {};
    auto type = QMimeDatabase().mimeTypeForFileNameAndData(pathText(path), file.get()).name().toLatin1();
    if (type.startsWith("text/")) {
        const auto bytes = file->readAll().toStdString();
        const auto kind = type == "text/css" ? TextKind::Plain : TextKind::Page;
        const auto found = detect(bytes, kind);
        if (!found.mark && !found.declared && (found.encoding == Encoding::Utf8 || found.guessed))
            type += "; charset=" + QByteArray::fromStdString(std::string(labelOf(found.encoding)));
    }
    file->seek(0);
    return {std::move(file), type};
}

} // namespace kevra
