// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/text_format.h"

#include <string>
#include <string_view>

namespace kevra {

[[nodiscard]] std::string_view withoutMark(std::string_view bytes, const TextFormat &format);

/// The text of a file with its own line ends; not copied if the bytes already are UTF-8.
class OriginalText {
public:
    OriginalText(std::string_view bytes, const TextFormat &format);
    OriginalText(const OriginalText &) = delete;
    OriginalText &operator=(const OriginalText &) = delete;

    [[nodiscard]] std::string_view view() const { return m_view; }
    [[nodiscard]] bool isViewOf(std::string_view bytes) const { return m_view.data() == bytes.data(); }
    [[nodiscard]] bool hasRawBytes() const { return m_rawBytes; }

private:
    std::string m_converted;
    std::string_view m_view;
    bool m_rawBytes = false;
};

} // namespace kevra
