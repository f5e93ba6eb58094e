// SPDX-License-Identifier: GPL-3.0-or-later
// Opening files: from the command line, by dialog, by dropping on the window; and starting new documents.
#pragma once

#include "colour/document_colouring.h"
#include "document/command_ports.h"
#include "document/file_types.h"
#include "document/save_commands.h"
#include "storage/recovery_record.h"

#include <optional>
#include <string>

namespace kevra {

class OpenCommands {
public:
    OpenCommands(FileCommandPorts ports, SaveCommands &saving, DocumentColouring &colouring);

    /// The argument text is one path, taken whole.
    void openFromCommandLine(const std::string &commandLine);
    void openWithDialog();
    /// As the dialog does with the path chosen.
    void openDropped(const std::string &path);
    /// The same for a file of any type, which a list of this program has shown.
    void openListed(const std::string &path);
    /// Loads a file, whatever its type; false, with the document untouched, when it cannot be read.
    bool loadAccepted(const std::string &path);

    /// The document's file anew, in another character set where one is named; what the window has instead is
    /// given up. False when it cannot be read.
    bool reload(std::optional<Encoding> encoding = std::nullopt);

    /// A recovered text with the tools, colours and title of the file it would have gone to. It is nobody's
    /// file: Save asks for a name.
    void showRecovered(const RecoveryRecord &record);

    /// Asks as opening does, then an empty document without a path.
    void newFile();
    /// The same with the content of the template, which stays as it is.
    void startWithTemplate(const std::string &templatePath);

private:
    /// What becomes of the text that is there, asked for where it is unsaved.
    enum class OldText { Keep, GiveUp };
    [[nodiscard]] OldText askAboutText();
    enum class Types { Accepted, Any };
    void openChosen(const std::string &path, OldText old, Types types = Types::Accepted);
    enum class Load { Done, Unreadable, OldTextStays };
    Load load(const std::string &path, OldText old, std::optional<Encoding> encoding = std::nullopt);
    Load loadWithinMemory(const std::string &path, OldText old, std::optional<Encoding> encoding);
    /// The text as one of its type: in the document, with tools and colours.
    void present(OpenedFile &&file, TypeGroup group);
    /// False, with nothing done, when the text that is there has to stay.
    [[nodiscard]] bool releaseText(OldText old);
    void setText(std::string_view text);
    void refuse(std::string_view path);
    [[nodiscard]] bool startNew(const DecodedFile &content, OldText old);
    /// What a text without a name is, by its looks and the tools it is shown with.
    [[nodiscard]] TypeGroup groupOfNewWork(std::string_view text) const;
    void showTools(TypeGroup group);
    /// Nothing for a text that is not coloured.
    [[nodiscard]] PendingPaint paintOf(std::string_view text, TypeGroup group) const;
    void colour(TypeGroup group, PendingPaint paint);

    FileCommandPorts m_ports;
    SaveCommands &m_saving;
    DocumentColouring &m_colouring;
};

} // namespace kevra
