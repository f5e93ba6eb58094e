// SPDX-License-Identifier: GPL-3.0-or-later
// The files open in the client and the related ones on the disk, with the model of each.
#pragma once

#include "lsp/text_document.h"
#include "script/file_model.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kevra::lsp {

/// The file system to the server. Paths are bytes.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    /// The text as UTF-8; nothing if it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string &path) = 0;
    /// Changes with the file's content; 0 if there is no such file.
    [[nodiscard]] virtual std::uint64_t stamp(const std::string &path) = 0;
    /// Paths of the files with script below a folder, up to a bound.
    [[nodiscard]] virtual std::vector<std::string> scriptsBelow(const std::string &folder) = 0;
    /// What is broken in a page apart from its scripts, such as links to files that are missing. Ascending by
    /// place. The path is empty for a text without a file.
    [[nodiscard]] virtual std::vector<script::Finding> pageFindings(
        std::string_view text, script::FileKind kind, const std::string &path)
        = 0;
};

class WorkspaceFile {
public:
    WorkspaceFile(std::string uri, script::FileKind kind, TextDocument text);

    [[nodiscard]] const std::string &uri() const { return m_uri; }
    [[nodiscard]] const TextDocument &text() const { return m_text; }
    /// Valid until the next change.
    [[nodiscard]] const script::FileModel &model() const;
    /// Of the scripts and of the page, ascending by place.
    [[nodiscard]] const std::vector<script::Finding> &findings(FileSystem &disk) const;
    /// The files around have changed.
    void forgetFindings();
    void replace(TextRange range, std::string_view text);
    void replaceAll(std::string text);

    std::optional<std::int64_t> version; ///< the client's
    bool diagnosticsDue = false;

private:
    struct Known {
        Known(const std::string &current, script::FileKind kind)
            : text(current)
            , model(text, kind)
        {
        }
        std::string text; ///< referred to by the model
        script::FileModel model;
        std::optional<std::vector<script::Finding>> findings;
    };
    [[nodiscard]] Known &known() const;

    std::string m_uri;
    script::FileKind m_kind;
    TextDocument m_text;
    mutable std::unique_ptr<Known> m_known;
};

/// A part of a file whose global names are shared.
struct SharedPart {
    const WorkspaceFile *document = nullptr;
    const script::FilePart *part = nullptr;
};

class Workspace {
public:
    explicit Workspace(FileSystem &disk)
        : m_disk(disk)
    {
    }

    void setPositionUnit(PositionUnit unit) { m_unit = unit; }
    void addFolder(const std::string &uri);
    void removeFolder(const std::string &uri);

    WorkspaceFile &open(const std::string &uri, std::string_view language, std::string text);
    void close(const std::string &uri);
    /// Null if it is not open. The URI may be escaped differently than when it was opened.
    [[nodiscard]] WorkspaceFile *find(const std::string &uri);
    [[nodiscard]] std::map<std::string, WorkspaceFile> &documents() { return m_open; }
    [[nodiscard]] const std::vector<script::Finding> &findings(const WorkspaceFile &document)
    {
        return document.findings(m_disk);
    }

    /// Checks the files on the disk again. Between calls, what was loaded is kept.
    void recheckFiles() { m_checked.clear(); }
    /// The file as open in the client, else as on the disk; null if there is none.
    [[nodiscard]] const WorkspaceFile *load(const std::string &uri);
    /// All files with script below the folders, open ones included.
    [[nodiscard]] std::vector<const WorkspaceFile *> all();
    /// The part itself and those loaded together with it: files that it includes with src= or #include, and
    /// files that include it.
    [[nodiscard]] std::vector<SharedPart> sharing(
        const WorkspaceFile &document, const script::FilePart &part);
    /// The files that the part includes, directly and indirectly; cheaper than also finding who includes it.
    [[nodiscard]] std::vector<SharedPart> includedParts(
        const WorkspaceFile &document, const script::FilePart &part);
    /// The file that a src= or #include at the position names; null if there is none.
    [[nodiscard]] const WorkspaceFile *includedAt(const WorkspaceFile &document, Offset offset);

private:
    struct OnDisk {
        std::uint64_t stamp = 0;
        std::unique_ptr<WorkspaceFile> document;
    };

    /// A part that includes a file, given as its URI.
    struct Include {
        SharedPart from;
        std::string to;
    };

    [[nodiscard]] std::vector<Include> allIncludes();
    void refresh(OnDisk &entry, const std::string &uri, const std::string &path);
    [[nodiscard]] std::set<std::string> uris();
    [[nodiscard]] std::vector<std::string> included(
        const WorkspaceFile &document, const script::FilePart &part);

    FileSystem &m_disk;
    PositionUnit m_unit = PositionUnit::Utf16;
    std::set<std::string> m_folders; ///< paths
    // By normalised URI.
    std::map<std::string, WorkspaceFile> m_open;
    std::map<std::string, OnDisk> m_onDisk;
    std::set<std::string> m_checked; ///< the entries of m_onDisk known to be up to date
};

} // namespace kevra::lsp
