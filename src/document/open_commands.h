// SPDX-License-Identifier: GPL-3.0-or-later
// Opening files: from the command line, by dialog, by dropping on the window; and starting new documents.
#pragma once

#include "colour/document_colouring.h"
#include "document/command_ports.h"
#include "document/file_types.h"
#include "document/save_commands.h"
#include "storage/recovery_record.h"

#include <functional>
#include <optional>
#include <string>

namespace kevra {

class OpenCommands {
public:
    OpenCommands(FileCommandPorts ports, SaveCommands &saving, DocumentColouring &colouring);

    /// `step` runs before a command of the user's that shows another document.
    void beforeOpening(std::function<void()> step) { m_beforeOpening = std::move(step); }

    /// `takes` is offered a dropped file before it is opened as a document; true if it was taken.
    void offerDroppedTo(std::function<bool(const std::string &path)> takes)
    {
        m_takesDropped = std::move(takes);
    }

    /// The whole argument is one path.
    void openFromCommandLine(const std::string &commandLine);
    void openWithDialog();
    /// As openWithDialog() does with the chosen path, unless something else takes the file.
    void openDropped(const std::string &path);
    /// The same for a file of any type from one of the program's own lists.
    void openListed(const std::string &path);
    /// Loads a file of any type. False, with the document unchanged, when it cannot be read.
    bool loadAccepted(const std::string &path);

    /// Reads the document's file again, as `encoding` if given, and discards the window's text. False when it
    /// cannot be read.
    bool reload(std::optional<Encoding> encoding = std::nullopt);

    /// Shows a recovered text with the tools, colours and title of its original file. It has no file: Save
    /// asks for a name.
    void showRecovered(const RecoveryRecord &record);

    /// Asks about unsaved text as opening does, then starts an empty document without a path.
    void newFile();
    /// The same with the template's content; the template file is not changed.
    void startWithTemplate(const std::string &templatePath);

private:
    /// What to do with the current text; the user is asked if it is unsaved.
    enum class OldText { Keep, GiveUp };
    [[nodiscard]] OldText askAboutText();
    enum class Types { Accepted, Any };
    void openChosen(const std::string &path, OldText old, Types types = Types::Accepted);
    enum class Load { Done, Unreadable, OldTextStays };
    Load load(const std::string &path, OldText old, std::optional<Encoding> encoding = std::nullopt);
    Load loadWithinMemory(const std::string &path, OldText old, std::optional<Encoding> encoding);
    /// Shows the text with the tools and colours of its type.
    void present(OpenedFile &&file, TypeGroup group);
    /// False, with nothing done, when the current text has to stay.
    [[nodiscard]] bool releaseText(OldText old);
    void setText(std::string_view text);
    void refuse(std::string_view path);
    [[nodiscard]] bool startNew(const DecodedFile &content, OldText old);
    /// The type of a text without a name, from its content and the current tools.
    [[nodiscard]] TypeGroup groupOfNewWork(std::string_view text) const;
    void showTools(TypeGroup group);
    /// Nothing for a text that is not coloured.
    [[nodiscard]] PendingPaint paintOf(std::string_view text, TypeGroup group) const;
    void colour(TypeGroup group, PendingPaint paint);

    FileCommandPorts m_ports;
    SaveCommands &m_saving;
    DocumentColouring &m_colouring;
    std::function<void()> m_beforeOpening = [] {};
    std::function<bool(const std::string &)> m_takesDropped = [](const std::string &) { return false; };
};

} // namespace kevra
