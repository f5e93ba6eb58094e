// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/check_report.h"

#include "cli/file_name.h"
#include "text/utf8.h"

#include <cstdio>

namespace kevra {
namespace {

std::string jsonString(std::string_view text)
{
    std::string out = "\"";
    for (const char byte : text) {
        if (byte == '"' || byte == '\\') {
            (out += '\\') += byte;
        } else if (static_cast<unsigned char>(byte) < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(byte));
            out += escape;
        } else {
            out += byte;
        }
    }
    return out += '"';
}

std::string textReport(const CheckedFile &file)
{
    if (file.findings.empty())
        return file.name + ": OK\n";
    std::string out;
    for (const auto &finding : file.findings)
        out += file.name + ": " + finding.message + '\n';
    return out;
}

std::string gccReport(const CheckedFile &file)
{
    std::string out;
    for (const auto &finding : file.findings) {
        // A finding about the whole script is reported at its first line.
        const auto line = finding.line == 0 ? 1 : finding.line;
        out += file.name + ':' + std::to_string(line) + ": warning: " + finding.message + '\n';
    }
    return out;
}

/// One JSON object per file, on one line.
std::string jsonReport(const CheckedFile &file)
{
    std::string out = "{\"file\": " + jsonString(nameAsUtf8(file.name));
    if (!isUtf8(file.name))
        out += ", \"fileBytes\": " + jsonString(percentEncoded(file.name));
    out += std::string(", \"ok\": ") + (file.findings.empty() ? "true" : "false") + ", \"findings\": [";
    for (const auto &finding : file.findings) {
        const auto line = finding.line == 0 ? std::string("null") : std::to_string(finding.line);
        out += (&finding == &file.findings.front() ? "" : ", ");
        out += "{\"line\": " + line + ", \"text\": " + jsonString(finding.message) + "}";
    }
    return out += "]}\n";
}

} // namespace

std::string checkReport(const CheckedFile &file, CheckFormat format)
{
    switch (format) {
    case CheckFormat::Gcc:
        return gccReport(file);
    case CheckFormat::Json:
        return jsonReport(file);
    case CheckFormat::Text:
        break;
    }
    return textReport(file);
}

} // namespace kevra
