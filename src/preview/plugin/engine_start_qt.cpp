// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/engine_start_qt.h"

#include "desktop/privileges_qt.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtGui/QAccessible>

namespace kevra {

namespace {

constexpr auto flagsName = "QTWEBENGINE_CHROMIUM_FLAGS";
constexpr auto sandboxName = "QTWEBENGINE_DISABLE_SANDBOX";
constexpr auto helperFile = "/kevra-page-process";

/// The network's own process can be refused every socket; inside the editor's process it could not. With no
/// names to look up and no proxy to ask, nothing is even tried.
constexpr auto networkFlags = " --disable-features=NetworkServiceInProcess"
                              " --host-resolver-rules=\"MAP * ~NOTFOUND\" --no-proxy-server";

std::optional<QByteArray> valueOf(const char *name)
{
    return qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt;
}

void put(const char *name, const std::optional<QByteArray> &value)
{
    if (value)
        qputenv(name, *value);
    else
        qunsetenv(name);
}

} // namespace

EngineStart::EngineStart(const QString &folder)
    : m_helper(folder + helperFile)
{
    auto flags = qgetenv(flagsName) + networkFlags;
    // Not detected by the engine itself, which then offers a screen reader an empty page.
    if (QAccessible::isActive())
        flags += " --force-renderer-accessibility";
    set(flagsName, flags);
    set("QTWEBENGINEPROCESS_PATH", QFile::encodeName(m_helper));
    set("QTWEBENGINE_REMOTE_DEBUGGING", std::nullopt); // a server for whoever connects
    // With its sandbox the engine would end the whole program when it is run by root.
    if (runsAsRoot())
        set(sandboxName, "1");
    m_sandboxed = qEnvironmentVariableIntValue(sandboxName) == 0;
}

EngineStart::~EngineStart()
{
    for (const auto &saved : m_saved)
        put(saved.name, saved.value);
}

void EngineStart::set(const char *name, std::optional<QByteArray> value)
{
    m_saved.push_back({name, valueOf(name)});
    put(name, value);
}

bool EngineStart::isPossible() const
{
    return QProcess::execute(m_helper, {}) == 0;
}

} // namespace kevra
