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
    if (file.faults.empty())
        return file.name + ": OK\n";
    std::string out;
    for (const auto &fault : file.faults)
        out += file.name + ": " + fault.message + '\n';
    return out;
}

std::string gccReport(const CheckedFile &file)
{
    std::string out;
    for (const auto &fault : file.faults) {
        // A fault about the whole script is reported at its first line.
        const auto line = fault.line == 0 ? 1 : fault.line;
        out += file.name + ':' + std::to_string(line) + ": warning: " + fault.message + '\n';
    }
    return out;
}

/// One JSON object per file, on one line.
std::string jsonReport(const CheckedFile &file)
{
    std::string out = "{\"file\": " + jsonString(nameAsUtf8(file.name));
    if (!isUtf8(file.name))
        out += ", \"fileBytes\": " + jsonString(percentEncoded(file.name));
    out += std::string(", \"ok\": ") + (file.faults.empty() ? "true" : "false") + ", \"findings\": [";
    for (const auto &fault : file.faults) {
        const auto line = fault.line == 0 ? std::string("null") : std::to_string(fault.line);
        out += (&fault == &file.faults.front() ? "" : ", ");
        out += "{\"line\": " + line + ", \"text\": " + jsonString(fault.message) + "}";
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
