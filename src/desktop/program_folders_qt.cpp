// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/program_folders_qt.h"

#include "desktop/text_qt.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <unistd.h>

namespace kevra {

namespace {

bool holdsAssets(const QDir &folder)
{
    return QFileInfo::exists(folder.filePath("template.html"));
}

bool isPortable()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return holdsAssets(program) && QFileInfo(program.path()).isWritable();
}

/// XDG_STATE_HOME, which this version of QStandardPaths does not support.
QString stateFolder()
{
    const auto state = qEnvironmentVariable("XDG_STATE_HOME");
    const auto base
        = QDir::isAbsolutePath(state) && !state.isEmpty() ? state : QDir::homePath() + "/.local/state";
    return base + "/kevra";
}

/// Per-user folders that outlive the program; those that survive a reboot come first.
std::vector<std::string> spareFolders()
{
    std::vector<std::string> folders;
    const auto add = [&](const QString &parent, const QString &name) {
        if (QDir::isAbsolutePath(parent))
            folders.push_back(pathBytes(parent + '/' + name));
    };
    const auto mine = "kevra-" + QString::number(::geteuid());
    const auto temporary = qEnvironmentVariable("TMPDIR");
    if (temporary.isEmpty())
        add("/var/tmp", mine);
    add(qEnvironmentVariable("XDG_RUNTIME_DIR"), "kevra");
    add(temporary.isEmpty() ? "/tmp" : temporary, mine);
    return folders;
}

} // namespace

ProgramFolders programFolders()
{
    ProgramFolders folders;
    folders.portable = isPortable();
    const auto autosave = folders.portable ? QCoreApplication::applicationDirPath() : stateFolder();
    QDir().mkpath(QFileInfo(autosave).path());
    QDir().mkdir(
        autosave, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); // independent of the umask
    folders.autosave = pathBytes(autosave);
    folders.spare = spareFolders();
    return folders;
}

std::string documentsFolder()
{
    return pathBytes(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

std::string assetPath(const std::string &name)
{
    const auto file = pathText(name);
    const QDir program(QCoreApplication::applicationDirPath());
    if (isPortable())
        return pathBytes(program.filePath(file));
    const auto data = QStandardPaths::locate(QStandardPaths::GenericDataLocation, "kevra/" + file);
    if (!data.isEmpty())
        return pathBytes(data);
    const auto installed = program.filePath("../share/kevra/" + file);
    return pathBytes(QFileInfo::exists(installed) ? QDir::cleanPath(installed) : program.filePath(file));
}

} // namespace kevra
