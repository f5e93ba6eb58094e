// SPDX-License-Identifier: GPL-3.0-or-later
// What is asked of the system's library for character sets. A system with another library implements this
// header in a file of its own, beside converter_iconv.cpp.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace kevra {

class Converter {
public:
    virtual ~Converter() = default;

    /// From one set to another, by the names of character_sets.cpp and "UTF-8"; null where the system does
    /// not have it. Not to be used by two threads at a time.
    [[nodiscard]] static std::unique_ptr<Converter> between(const std::string &from, const std::string &to);

    /// Appends to `out` what `in` becomes, as far as the first place that has no counterpart or is cut off,
    /// and returns how many bytes of `in` that was. Every call starts and ends in the initial state.
    [[nodiscard]] virtual std::size_t convert(std::string_view in, std::string &out) = 0;
};

} // namespace kevra
