// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_store_qt.h"

#include "desktop/text_qt.h"
#include "settings/ini_text.h"
#include "storage/file_handle_posix.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

namespace kevra {

namespace {

QString keyOf(std::string_view section, std::string_view key)
{
    return textOf(section) + u'/' + textOf(key);
}

bool readFile(QIODevice &device, QSettings::SettingsMap &map)
{
    const auto file = readIni(device.readAll().toStdString());
    for (const auto &[name, value] : file.values)
        map[textOf(name)] = textOf(value);
    return file.complete;
}

/// False unless every byte is on the disk: QSettings replaces the old file without checking that the buffer
/// was flushed.
bool writeFile(QIODevice &device, const QSettings::SettingsMap &map)
{
    IniValues values;
    for (auto it = map.begin(); it != map.end(); ++it)
        values[it.key().toStdString()] = it.value().toString().toStdString();
    const auto bytes = iniText(values);
    const auto size = static_cast<qint64>(bytes.size());
    auto *file = qobject_cast<QFileDevice *>(&device);
    return file && file->write(bytes.data(), size) == size && file->flush() && file->size() == size
        && !synchronise(file->handle());
}

QSettings::Format format()
{
    static const auto ini = QSettings::registerFormat("ini", readFile, writeFile, Qt::CaseSensitive);
    return ini;
}

/// Whether the file on the disk has this value. QSettings::status() keeps reporting the first failure.
bool holds(const QString &path, const QString &key, std::string_view value)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto values = readIni(file.readAll().toStdString()).values;
    const auto it = values.find(key.toStdString());
    return it != values.end() && it->second == value;
}

void backUp(const QString &file)
{
    const auto kept = file + ".damaged";
    QFile::remove(kept);
    QFile::copy(file, kept);
}

} // namespace

QString SettingsStoreQt::fileOf(std::string_view app) const
{
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const auto path = folder + "/kevra/" + textOf(app) + ".ini";
    const QFileInfo file(path);
    if (!file.exists() || file.isFile() || file.isDir())
        return path;
    // QSettings would block on a FIFO.
    m_passedOver.push_back(pathBytes(path));
    return path + ".regular";
}

QSettings &SettingsStoreQt::file(std::string_view app) const
{
    auto it = m_files.find(app);
    if (it == m_files.end())
        it = m_files.emplace(app, std::make_unique<QSettings>(fileOf(app), format())).first;
    return *it->second;
}

QSettings &SettingsStoreQt::fileToWrite(std::string_view app)
{
    auto &settings = file(app);
    // Only once: the first write repairs the file, but the status still reports the damage.
    if (settings.status() == QSettings::FormatError && m_backedUp.insert(std::string(app)).second)
        backUp(settings.fileName());
    return settings;
}

std::string SettingsStoreQt::getSetting(
    std::string_view app, std::string_view section, std::string_view key, std::string_view fallback) const
{
    const auto value = file(app).value(keyOf(section, key));
    return value.isValid() ? value.toString().toStdString() : std::string(fallback);
}

void SettingsStoreQt::saveSetting(
    std::string_view app, std::string_view section, std::string_view key, std::string_view value)
{
    auto &settings = fileToWrite(app);
    settings.setValue(keyOf(section, key), textOf(value));
    settings.sync();
    m_stored = holds(settings.fileName(), keyOf(section, key), value);
}

void SettingsStoreQt::deleteSetting(std::string_view app, std::string_view section)
{
    auto &settings = fileToWrite(app);
    settings.remove(textOf(section));
    settings.sync();
}

void SettingsStoreQt::deleteSetting(std::string_view app)
{
    auto &settings = fileToWrite(app);
    settings.clear();
    settings.sync();
    const auto name = settings.fileName();
    m_files.erase(m_files.find(app));
    QFile::remove(name);
}

} // namespace kevra
