// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/layout.h"

#include <algorithm>

namespace kevra {

namespace {

constexpr int usuallyAbove = 780; ///< the strip above the editor
constexpr int besideLeft = 435; ///< width of the line numbers
constexpr int below = 495;
constexpr int widthPercent = 94;
constexpr int informationMargin = 180;
constexpr int rowGap = 30;
constexpr int hairline = twipsPerPixel; ///< between the line numbers and the text

int noLessThanZero(int value)
{
    return std::max(value, 0);
}

/// The preferred width, limited to the window: a panel that starts left of it would be out of reach.
TwipRect centred(const TwipRect &inner, TwipSize size, int top)
{
    const int width = std::min(size.width, noLessThanZero(inner.width));
    return {inner.left + (noLessThanZero(inner.width) - width) / 2, top, width, size.height};
}

} // namespace

MainLayout layout(const LayoutRequest &request)
{
    const auto &inner = request.inner;
    // A large desktop font needs more than the usual strip.
    const int above = std::max(usuallyAbove, request.information.height + request.status + 3 * rowGap);
    MainLayout result;
    result.editor = {.left = inner.left + besideLeft,
        .top = inner.top + above,
        .width = noLessThanZero(static_cast<int>(static_cast<long long>(inner.width) * widthPercent / 100)),
        .height = noLessThanZero(inner.height - above - below)};
    result.lineNumbers = {inner.left, result.editor.top, besideLeft - hairline, result.editor.height};
    for (std::size_t i = 0; i < result.panels.size(); ++i)
        result.panels[i] = centred(inner,
            {request.panels[i].width, std::min(request.panels[i].height, below)}, result.editor.bottom());

    // The list takes its space from the text, at most half of it.
    const int textBottom = result.editor.bottom();
    result.findings = {inner.left + informationMargin, 0, noLessThanZero(inner.width - 2 * informationMargin),
        std::min(request.findings, result.editor.height / 2)};
    result.editor.height -= result.findings.height;
    result.lineNumbers.height = result.editor.height;
    result.findings.top = result.editor.bottom();

    const auto &fonts = request.fonts;
    result.fonts = {inner.right() - fonts.width, inner.top, fonts.width, fonts.height};
    const int rowWidth = noLessThanZero(inner.width - fonts.width - informationMargin);
    result.information
        = {inner.left + informationMargin, inner.top + rowGap, rowWidth, request.information.height};
    const int statusTop = result.information.bottom() + rowGap;
    result.status
        = {inner.left + informationMargin, statusTop, noLessThanZero(inner.width - 2 * informationMargin),
            noLessThanZero(inner.top + above - rowGap - statusTop)};

    result.image = centred(inner, request.image, inner.bottom() - request.image.height);
    // At the bottom of the document, where the colour finder is opened.
    result.colour = centred(inner, request.colour, noLessThanZero(textBottom - request.colour.height));
    return result;
}

} // namespace kevra
