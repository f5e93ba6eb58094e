// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_store_qt.h"

#include <QtCore/QFile>

namespace kevra {

namespace {

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString keyOf(std::string_view section, std::string_view key)
{
    return textOf(section) + u'/' + textOf(key);
}

void copyAside(const QString &file)
{
    const auto kept = file + ".damaged";
    QFile::remove(kept);
    QFile::copy(file, kept);
}

} // namespace

QSettings &SettingsStoreQt::file(std::string_view app) const
{
    auto it = m_files.find(app);
    if (it == m_files.end())
        it = m_files
                 .emplace(app,
                     std::make_unique<QSettings>(
                         QSettings::IniFormat, QSettings::UserScope, QStringLiteral("kevra"), textOf(app)))
                 .first;
    return *it->second;
}

QSettings &SettingsStoreQt::fileToWrite(std::string_view app)
{
    auto &settings = file(app);
    // Once: after the first write the file is whole again, and the state of the object still says damaged.
    if (settings.status() == QSettings::FormatError && m_keptAside.insert(std::string(app)).second)
        copyAside(settings.fileName());
    return settings;
}

std::string SettingsStoreQt::getSetting(
    std::string_view app, std::string_view section, std::string_view key, std::string_view fallback) const
{
    const auto value = file(app).value(keyOf(section, key));
    // A comma in a line written by hand makes a list of it.
    return value.isValid() ? value.toStringList().join(u',').toStdString() : std::string(fallback);
}

void SettingsStoreQt::saveSetting(
    std::string_view app, std::string_view section, std::string_view key, std::string_view value)
{
    auto &settings = fileToWrite(app);
    settings.setValue(keyOf(section, key), textOf(value));
    settings.sync();
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
