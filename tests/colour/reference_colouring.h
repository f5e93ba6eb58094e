// SPDX-License-Identifier: GPL-3.0-or-later
// A text with a colour for each character, and slow, literal implementations of the colouring procedures on
// it, one selection at a time: the reference for the passes.
#pragma once

#include "text/types.h"
#include "text/words.h"

#include <string>
#include <vector>

namespace kevra {

class ReferenceColouring {
public:
    explicit ReferenceColouring(std::u32string characters)
        : text(std::move(characters))
        , colour(text.size(), colours::black)
    {
    }

    [[nodiscard]] int length() const { return static_cast<int>(text.size()); }

    /// Ignores case. Positions from 0; -1 if not found.
    [[nodiscard]] int find(const std::u32string &what, int start, int end, bool whole = false) const
    {
        const int size = static_cast<int>(what.size());
        for (int at = start; at + size <= end; ++at) {
            const bool alike = lower(text.substr(static_cast<std::size_t>(at), what.size())) == lower(what);
            if (alike && !(whole && (word(at - 1) || word(at + size))))
                return at;
        }
        return -1;
    }

    void paint(int start, int size, Colour with)
    {
        for (int at = start; at < start + size && at < length(); ++at)
            colour[static_cast<std::size_t>(at)] = with;
    }

    [[nodiscard]] char32_t at(int position) const { return text[static_cast<std::size_t>(position)]; }

    std::u32string text;
    std::vector<Colour> colour;

private:
    [[nodiscard]] bool word(int position) const
    {
        return position >= 0 && position < length() && isWordCharacter(at(position));
    }
    static std::u32string lower(std::u32string s)
    {
        for (auto &c : s)
            c = c < 0x80 ? static_cast<unsigned char>(lowerAscii(static_cast<char>(c))) : c;
        return s;
    }
};

/// Paints every tag, counting characters from 1.
void colourTagsStepByStep(ReferenceColouring &reference, Colour code);
/// Paints a whole script, piece by piece.
void colourScriptStepByStep(ReferenceColouring &reference, Colour code);
/// Paints one region, string literals included; false if the procedure fails.
bool colourRegionStepByStep(ReferenceColouring &reference, int start, int end, Colour code);

} // namespace kevra
