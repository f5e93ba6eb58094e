// SPDX-License-Identifier: GPL-3.0-or-later
// A page as the tree that browsers make of it, each element with its places in the text. Offsets are bytes of
// the page as it is written, <% %> and <?php ?> included; the tree itself does not see those parts.
#pragma once

#include "text/types.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra::page {

struct Attribute {
    std::string name; ///< lower case, but for the names of SVG that have capitals
    std::string value; ///< character references decoded; empty where there is none
    TextRange nameRange;
    TextRange valueRange; ///< without quotation marks; empty where there is no value
};

struct Element {
    std::string tag; ///< lower case, but for the names of SVG that have capitals
    TextRange startTag; ///< empty for an element that the parser supplied
    TextRange endTag; ///< empty where there is none
    /// From the start tag to the end of the end tag, or to where the parser closed the element. Empty for an
    /// element that the parser supplied.
    TextRange whole;
    std::size_t parent = 0; ///< index into ElementTree::elements(); the root is its own parent
    std::vector<Attribute> attributes;

    /// nullptr where it has no such attribute.
    [[nodiscard]] const Attribute *find(std::string_view name) const;
};

class ElementTree {
public:
    /// Never fails. What is nested more than 500 deep is taken out of its innermost elements; the text after
    /// the first 32 MB is not looked at.
    [[nodiscard]] static ElementTree parse(std::string_view html);

    /// A parent before its children, children in their order in the page. There is always a root.
    [[nodiscard]] const std::vector<Element> &elements() const { return m_elements; }
    /// The innermost element whose range holds the offset: of several, the one that begins last.
    [[nodiscard]] std::optional<std::size_t> elementAt(Offset offset) const;
    /// Elements with a start tag, ascending by it.
    [[nodiscard]] const std::vector<std::size_t> &byPlace() const { return m_byPlace; }

    ElementTree() = default; ///< without a root
    /// Of elements as the parser gives them: the root first, a parent before its children.
    explicit ElementTree(std::vector<Element> elements);

private:
    std::vector<Element> m_elements;
    std::vector<std::size_t> m_byPlace;
    /// For each entry of m_byPlace the one before it whose range holds its start; itself where there is none.
    std::vector<std::size_t> m_around;
};

} // namespace kevra::page
