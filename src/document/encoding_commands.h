// SPDX-License-Identifier: GPL-3.0-or-later
// The character set, byte-order mark and line ends of the document: what is said of them, and changing them.
#pragma once

#include "document/command_ports.h"
#include "document/misfit_watch.h"
#include "document/open_commands.h"

#include <functional>
#include <optional>
#include <string>

namespace kevra {

/// What the small line under the text says of the document's file.
struct EncodingStatus {
    TextFormat format; ///< that the next save writes, as far as the text fits
    std::string notice; ///< what the save will do that nobody might expect; mostly empty
    std::string offer; ///< of changing what the text declares: "Declare UTF-8"; mostly empty
};

class EncodingCommands {
public:
    /// Replaces a part of the document as the user's own edit, in one step of undo.
    using Replace = std::function<void(TextRange range, std::string_view text)>;

    EncodingCommands(FileCommandPorts ports, OpenCommands &opening, Replace replace);

    /// The document has another text: it was opened, started or reviewed.
    void documentReplaced();
    void textChanged(Offset position, Offset removed, Offset added);
    [[nodiscard]] EncodingStatus status();

    /// Whether there is a file to read again.
    [[nodiscard]] bool canReopen() const { return m_ports.file.owns(m_ports.state.currentPath); }
    /// Reads the document's file again in another set; asks when that would drop changes.
    void reopenAs(Encoding encoding);

    // The next save writes the text so.
    void saveAs(Encoding encoding);
    void setMark(bool on);
    void setLineEnds(LineEnds ends);

    /// Has the text declare what the next save writes.
    void declareEncoding();

private:
    [[nodiscard]] TextKind kind() const;
    /// What of the text can declare something.
    [[nodiscard]] std::string_view head() const;
    [[nodiscard]] TextFormat target() const;
    [[nodiscard]] TextFormat afterSave(const TextFormat &target, bool fits) const;
    void want(const TextFormat &format);
    void watch(const TextFormat &format);

    FileCommandPorts m_ports;
    OpenCommands &m_opening;
    Replace m_replace;
    MisfitWatch m_watch;
    std::optional<TextFormat> m_watchedFormat;
};

} // namespace kevra
