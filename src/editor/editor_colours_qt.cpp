// SPDX-License-Identifier: GPL-3.0-or-later
// The control's colours: the style of each colour, and painting large texts in idle time or when they come
// into view.
#include "editor/control_layout_qt.h"
#include "editor/editor_control_qt.h"

#include <algorithm>
#include <chrono>

namespace kevra {
namespace {

/// Longer than this, the rest of a text is painted on demand.
constexpr Offset paintedLater = Offset{256} * 1024;
constexpr Offset paintedAhead
    = Offset{64} * 1024; ///< more than requested, so that scrolling does not request each line
constexpr auto pauseBetweenSlices = std::chrono::milliseconds(10);

/// Sets the styles of the runs in `styles`, which has one for each byte of `range`.
void layRuns(
    std::string &styles, TextRange range, std::span<const ColourRun> runs, std::span<const char> runStyles)
{
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const auto start = std::max(runs[i].range.start, range.start);
        const auto end = std::min(runs[i].range.end, range.end);
        if (start < end)
            std::fill(
                styles.begin() + (start - range.start), styles.begin() + (end - range.start), runStyles[i]);
    }
}

} // namespace

void EditorControl::connectPainting()
{
    connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this, [this](int position) {
        if (m_breaks.toText(position) > m_unpainted.start())
            paintShown();
        stylesAreUpToDate();
    });
    m_paintRest.setInterval(pauseBetweenSlices);
    connect(&m_paintRest, &QTimer::timeout, this,
        [this] { paintUpTo(m_unpainted.start() + UnpaintedStyles::slice); });
}

Colour EditorControl::ColourAt(Offset position) const
{
    if (position < 0 || position >= TextLength())
        return colours::black;
    const auto style = static_cast<unsigned char>(position < m_unpainted.start()
            ? send(SCI_GETSTYLEAT, m_breaks.toControl(position))
            : m_unpainted.styleAt(position));
    return style < m_styleColours.size() ? m_styleColours[style] : colours::black;
}

void EditorControl::SetColours(TextRange range, std::span<const ColourRun> runs, Ground ground)
{
    settle();
    const auto whole = inside(range);
    std::string runStyles(runs.size(), '\0');
    std::ranges::transform(runs, runStyles.begin(),
        [this](const ColourRun &run) { return static_cast<char>(styleOf(run.colour)); });
    const bool onBlack = ground == Ground::Black || m_allBlack;
    const bool later = onBlack && whole.end == TextLength() && whole.length() > paintedLater;
    paintUpTo(later ? whole.start : whole.end);
    auto styles = onBlack ? std::string(static_cast<std::size_t>(whole.length()), '\0') : stylesIn(whole);
    layRuns(styles, whole, runs, runStyles);
    if (!later)
        return setStyles(whole.start, styles);
    paintLater(whole.start, std::move(styles));
}

void EditorControl::SetPaint(Paint paint)
{
    settle();
    // All styles are replaced, so they can be numbered like the palette.
    m_styleColours = std::move(paint.palette);
    for (std::size_t style = 1; style < m_styleColours.size(); ++style)
        send(SCI_STYLESETFORE, static_cast<Offset>(style), m_styleColours[style].value);
    if (TextLength() <= paintedLater)
        setStyles(0, paint.indices);
    else
        paintLater(0, std::move(paint.indices));
}

void EditorControl::paintLater(Offset start, std::string styles)
{
    m_allBlack = false; // even if none of it is in view
    m_unpainted.keep(start, std::move(styles));
    paintShown();
    m_paintRest.start();
}

void EditorControl::paintUpTo(Offset end)
{
    settle();
    const auto last = std::min(end, TextLength());
    while (const auto next = m_unpainted.takeNext(last))
        setStyles(next->start, next->styles);
    if (m_unpainted.start() >= TextLength()) {
        m_unpainted.clear();
        m_paintRest.stop();
    }
}

void EditorControl::paintAll()
{
    paintUpTo(TextLength());
}

void EditorControl::paintShown()
{
    const auto shown = ControlLayout(*this).textInView();
    const TextRange seen{
        std::max(shown.start, m_unpainted.start()), std::min(shown.end + paintedAhead, TextLength())};
    if (!m_unpainted.isFarBelow(seen))
        return paintUpTo(seen.end);
    setStyles(seen.start, m_unpainted.styles(seen)); // painted again with the rest
}

int EditorControl::styleOf(Colour colour)
{
    const auto known = std::ranges::find(m_styleColours, colour);
    if (known != m_styleColours.end())
        return static_cast<int>(known - m_styleColours.begin());
    if (m_styleColours.size() == STYLE_DEFAULT)
        m_styleColours.resize(STYLE_LASTPREDEFINED + 1, colours::black);
    if (m_styleColours.size() > STYLE_MAX)
        return 0;
    m_styleColours.push_back(colour);
    const auto style = static_cast<int>(m_styleColours.size()) - 1;
    send(SCI_STYLESETFORE, style, static_cast<std::intptr_t>(colour.value));
    return style;
}

void EditorControl::paint(TextRange range, int style)
{
    settle();
    if (range.empty())
        return;
    paintUpTo(range.end);
    m_allBlack = m_allBlack && style == 0;
    const auto [start, end] = controlRange(range);
    send(SCI_STARTSTYLING, start);
    send(SCI_SETSTYLING, end - start, style);
    stylesAreUpToDate();
}

} // namespace kevra
