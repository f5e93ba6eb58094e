// SPDX-License-Identifier: GPL-3.0-or-later
// The files the client has open, those on the disk that belong to them, and what is known about each.
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

/// The disk as the server needs it. Paths are bytes.
class DiskFiles {
public:
    virtual ~DiskFiles() = default;
    /// The text as UTF-8; nothing where it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string &path) = 0;
    /// Another number after each change; 0 where there is no such file.
    [[nodiscard]] virtual std::uint64_t stamp(const std::string &path) = 0;
    /// Paths of the files with script below a folder, as many as can be looked at in passing.
    [[nodiscard]] virtual std::vector<std::string> scriptsBelow(const std::string &folder) = 0;
    /// What is broken in a page apart from its scripts, such as links to files that are missing. Ascending by
    /// place. The path is empty for a text without a file.
    [[nodiscard]] virtual std::vector<script::Finding> pageFindings(
        std::string_view text, script::FileKind kind, const std::string &path)
        = 0;
};

class Document {
public:
    Document(std::string uri, script::FileKind kind, TextDocument text);

    [[nodiscard]] const std::string &uri() const { return m_uri; }
    [[nodiscard]] const TextDocument &text() const { return m_text; }
    /// Valid until the next change.
    [[nodiscard]] const script::FileModel &model() const;
    /// Of the scripts and of the page, ascending by place.
    [[nodiscard]] const std::vector<script::Finding> &findings(DiskFiles &disk) const;
    /// The files around have changed.
    void forgetFindings();
    void replace(TextRange range, std::string_view text);
    void replaceAll(std::string text);

    std::optional<std::int64_t> version; ///< as the client counts
    bool diagnosticsDue = false;

private:
    struct Known {
        Known(const std::string &current, script::FileKind kind)
            : text(current)
            , model(text, kind)
        {
        }
        std::string text; ///< what the model looks into
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
    const Document *document = nullptr;
    const script::FilePart *part = nullptr;
};

class Workspace {
public:
    explicit Workspace(DiskFiles &disk)
        : m_disk(disk)
    {
    }

    void agreeOn(PositionUnit unit) { m_unit = unit; }
    void addFolder(const std::string &uri);
    void removeFolder(const std::string &uri);

    Document &open(const std::string &uri, std::string_view language, std::string text);
    void close(const std::string &uri);
    /// Null for what is not open. The URI may be escaped in another way than when it was opened.
    [[nodiscard]] Document *find(const std::string &uri);
    [[nodiscard]] std::map<std::string, Document> &documents() { return m_open; }
    [[nodiscard]] const std::vector<script::Finding> &findings(const Document &document)
    {
        return document.findings(m_disk);
    }

    /// Files are looked at again. Until the next call, what was loaded from the disk stays.
    void lookAgain() { m_looked.clear(); }
    /// The file as it is in the editor, or else on the disk; null where there is none.
    [[nodiscard]] const Document *load(const std::string &uri);
    /// All with script below the folders, open ones included.
    [[nodiscard]] std::vector<const Document *> all();
    /// The part itself and those that are loaded together with it: what a file names with src= or #include,
    /// and the files that name this one.
    [[nodiscard]] std::vector<SharedPart> sharing(const Document &document, const script::FilePart &part);
    /// What the part names with src= or #include, and what these name; cheaper than to look who names the
    /// part.
    [[nodiscard]] std::vector<SharedPart> includedParts(
        const Document &document, const script::FilePart &part);
    /// The file that a src= or #include at the place names; null where there is none.
    [[nodiscard]] const Document *includedAt(const Document &document, Offset offset);

private:
    struct OnDisk {
        std::uint64_t stamp = 0;
        std::unique_ptr<Document> document;
    };

    void refresh(OnDisk &entry, const std::string &uri, const std::string &path);
    [[nodiscard]] std::set<std::string> uris();
    [[nodiscard]] std::vector<std::string> included(const Document &document, const script::FilePart &part);

    DiskFiles &m_disk;
    PositionUnit m_unit = PositionUnit::Utf16;
    std::set<std::string> m_folders; ///< paths
    // By the URI as we write it.
    std::map<std::string, Document> m_open;
    std::map<std::string, OnDisk> m_onDisk;
    std::set<std::string> m_looked; ///< those of m_onDisk that are as they are now
};

} // namespace kevra::lsp
