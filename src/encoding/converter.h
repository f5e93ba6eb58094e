// SPDX-License-Identifier: GPL-3.0-or-later
// The port to the system's library for character sets. Each library is used in a file of its own that
// implements this header, such as converter_iconv.cpp.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace kevra {

class Converter {
public:
    virtual ~Converter() = default;

    /// A converter between two sets, named as in character_sets.cpp or "UTF-8"; null if the system does not
    /// support it. Not thread-safe.
    [[nodiscard]] static std::unique_ptr<Converter> between(const std::string &from, const std::string &to);

    /// Converts `in` up to the first character that is invalid, incomplete or not in the target set, appends
    /// the result to `out` and returns the number of bytes converted. Every call starts and ends in the
    /// initial state.
    [[nodiscard]] virtual std::size_t convert(std::string_view in, std::string &out) = 0;
};

} // namespace kevra
