// SPDX-License-Identifier: GPL-3.0-or-later
// How the web engine is started: its processes without sockets to anywhere, see
// docs/decisions/preview-barrier.md.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>
#include <vector>

namespace kevra {

/// The environment the engine reads when its first profile is made. Restored afterwards, so that a program
/// the user starts from the editor gets the user's own.
class EngineStart {
public:
    /// `folder` holds the program every process of the engine is started through.
    explicit EngineStart(const QString &folder);
    ~EngineStart();
    EngineStart(const EngineStart &) = delete;
    EngineStart &operator=(const EngineStart &) = delete;

    /// False when this system cannot take the network from a process. The engine is not to be used then.
    [[nodiscard]] bool isPossible() const;
    [[nodiscard]] bool isSandboxed() const { return m_sandboxed; }

private:
    void set(const char *name, std::optional<QByteArray> value);

    struct Saved {
        const char *name;
        std::optional<QByteArray> value;
    };
    std::vector<Saved> m_saved;
    QString m_helper;
    bool m_sandboxed = true;
};

} // namespace kevra
