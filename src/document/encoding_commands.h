// SPDX-License-Identifier: GPL-3.0-or-later
// The character set, byte-order mark and line ends of the document: showing and changing them.
#pragma once

#include "document/command_ports.h"
#include "document/misfit_watch.h"
#include "document/open_commands.h"

#include <functional>
#include <optional>
#include <string>

namespace kevra {

/// What the status line shows about the document's encoding.
struct EncodingStatus {
    TextFormat format; ///< of the next save, if it can encode the text
    std::string notice; ///< what the save will do that may surprise; usually empty
    std::string offer; ///< offers to change the declaration: "Declare UTF-8"; usually empty
};

class EncodingCommands {
public:
    /// Replaces part of the document as a user edit, in one undo step.
    using Replace = std::function<void(TextRange range, std::string_view text)>;

    EncodingCommands(FileCommandPorts ports, OpenCommands &opening, Replace replace);

    /// The document's text was replaced: opened, started or reviewed.
    void documentReplaced();
    void textChanged(Offset position, Offset removed, Offset added);
    [[nodiscard]] EncodingStatus status();

    /// Whether there is a file to read again.
    [[nodiscard]] bool canReopen() const
    {
        return m_ports.document.file.owns(m_ports.document.state.currentPath);
    }
    /// Reads the file again in another encoding; asks first if changes would be lost.
    void reopenAs(Encoding encoding);

    // These set the format of the next save.
    void saveAs(Encoding encoding);
    void setMark(bool on);
    void setLineEnds(LineEnds ends);

    /// Changes the text's declarations to the encoding of the next save.
    void declareEncoding();

private:
    [[nodiscard]] TextKind kind() const;
    /// The beginning of the text, which can hold declarations.
    [[nodiscard]] std::string_view head() const;
    [[nodiscard]] TextFormat target() const;
    [[nodiscard]] TextFormat afterSave(const TextFormat &target, bool fits) const;
    void requestFormat(const TextFormat &format);
    void watch(const TextFormat &format);

    FileCommandPorts m_ports;
    OpenCommands &m_opening;
    Replace m_replace;
    MisfitWatch m_watch;
    std::optional<TextFormat> m_watchedFormat;
};

} // namespace kevra
