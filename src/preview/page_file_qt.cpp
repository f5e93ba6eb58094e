// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_file_qt.h"

#include "desktop/text_qt.h"
#include "encoding/charset.h"
#include "encoding/declared_charset.h"
#include "storage/file_handle_qt.h"

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
        if (!declaredCharset(bytes) && !isAscii(bytes) && isUtf8(bytes))
            type += "; charset=utf-8";
    }
    file->seek(0);
    return {std::move(file), type};
}

} // namespace kevra
