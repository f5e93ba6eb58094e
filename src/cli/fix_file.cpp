// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/fix_file.h"

#include "document/file_types.h"
#include "encoding/text_codec.h"
#include "script/fixes.h"
#include "storage/file_store_posix.h"

#include <cstdlib>

namespace kevra {
namespace {

/// Where the writer keeps a copy while it writes a file in place.
std::string stateFolder()
{
    const auto variable = [](const char *name) -> std::string {
        const char *value = std::getenv(name);
        return value ? value : "";
    };
    const auto state = variable("XDG_STATE_HOME");
    return (state.starts_with('/') ? state : variable("HOME") + "/.local/state") + "/kevra/recovery";
}

} // namespace

FixedFile fixFile(const std::string &path, std::string_view bytes, std::optional<Encoding> encoding,
    const std::function<std::vector<script::Finding>(std::string_view)> &analysis)
{
    const auto type = fileType(path);
    const auto kind = type ? type->kind : TextKind::Script;
    auto decoded = encoding ? decodeFileAs(bytes, kind, *encoding) : decodeFile(bytes, kind);
    if (path == "-")
        return {
            decoded.text, analysis(decoded.text), {"kevra-cli: -: standard input cannot be fixed"}, false};
    auto fixed = script::fixAll(decoded.text, analysis);
    FixedFile result;
    if (fixed.text != decoded.text) {
        FileStorePosix files(stateFolder(), {});
        const auto saved = files.write(path, encodeFile(fixed.text, decoded.format, bytes, kind).bytes);
        if (saved != WriteOutcome::Ok)
            return {decoded.text, analysis(decoded.text),
                {"kevra-cli: " + path + ": " + std::string(reason(saved))}, false};
        for (const auto &fix : fixed.applied)
            result.report.push_back(path + ':' + std::to_string(fix.line) + ": fixed "
                + script::code(fix.rule) + ": " + fix.title);
    }
    result.text = std::move(fixed.text);
    result.findings = std::move(fixed.left);
    return result;
}

} // namespace kevra
