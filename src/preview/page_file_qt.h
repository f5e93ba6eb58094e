// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

#include <memory>
#include <string>

namespace kevra {

/// A file as a browser gets it.
struct PageFile {
    std::unique_ptr<QIODevice> content; ///< null when it is no file that can be read
    /// Media type, with the character set where a browser would not find it: UTF-8 that is declared nowhere.
    QByteArray type;
};

[[nodiscard]] PageFile openPageFile(const std::string &path);

} // namespace kevra
