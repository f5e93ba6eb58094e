// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/beside_commands.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace kevra {
namespace {

using namespace std::chrono_literals;

constexpr auto shortestPause = 40ms; ///< in typing
constexpr auto longestPause = 500ms;
constexpr auto pauseBeforeLoading = 400ms; ///< half a script need not be run

constexpr std::string_view scriptNote = "A script has no page.";
constexpr std::string_view noEngineNote = "Pages cannot be shown on this machine.";
constexpr std::string_view endedNote
    = "The page's process has ended: it took too much memory or failed. \"Reload\" shows it again.";
constexpr std::string_view noMemoryNote
    = "There is not enough memory to show the page. \"Reload\" tries again.";
constexpr std::string_view stoppedNote = "The page has been stopped. \"Reload\" shows it again.";
constexpr std::string_view busyNote
    = "The page does not answer. \"Stop\" ends it, \"Reload\" shows the text as it is now.";

std::optional<Offset> numberIn(std::string_view text)
{
    Offset number = 0;
    const auto *end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc{} && stop == end && number >= 0 ? std::optional(number) : std::nullopt;
}

} // namespace

BesideCommands::BesideCommands(BesidePage &page, BesideDocument &document)
    : m_page(page)
    , m_document(document)
{
}

bool BesideCommands::isActive() const
{
    return m_state == State::Starting || m_state == State::Loading || m_state == State::Following;
}

void BesideCommands::open()
{
    if (m_state == State::Closed)
        start();
}

void BesideCommands::close()
{
    if (isActive())
        m_page.unload();
    m_state = State::Closed;
}

void BesideCommands::reload()
{
    if (m_state != State::Closed)
        start();
}

void BesideCommands::stop()
{
    if (!isActive())
        return;
    m_page.unload();
    m_state = State::Ended;
    m_page.showNote(BesideNote::State, stoppedNote);
}

void BesideCommands::openInBrowser(const std::string &path, bool saved)
{
    m_page.showNote(BesideNote::Browser, noteOfOpening(path, saved));
}

/// What there is to say about opening it.
std::string_view BesideCommands::noteOfOpening(const std::string &path, bool saved)
{
    // What the desktop has for scripts could run it.
    if (!m_isPage)
        return "A browser opens pages, not scripts.";
    if (path.empty())
        return "A browser opens files: save the text first.";
    if (!m_page.startBrowser(path))
        return "Failure opening the browser.";
    return saved ? "" : "The browser got the file as it was saved, without the changes since.";
}

void BesideCommands::start()
{
    m_page.unload();
    m_asking = m_refused = m_overdue = false;
    m_shown.reset();
    m_state = m_isPage ? State::Starting : State::Script;
    m_page.showNote(BesideNote::State, m_isPage ? std::string_view{} : scriptNote);
    if (m_isPage)
        prepare();
}

void BesideCommands::setDocument(const std::string &path, bool isPage)
{
    if (path == m_path && isPage == m_isPage)
        return;
    m_path = path;
    m_isPage = isPage;
    m_firstRevision = m_revision;
    if (m_state != State::Closed)
        start();
}

void BesideCommands::textChanged()
{
    ++m_revision;
    if (isActive())
        m_document.startTimer(m_refused ? pauseBeforeLoading : pauseInTyping());
}

void BesideCommands::pauseOver()
{
    if (isActive())
        prepare();
}

void BesideCommands::prepare()
{
    if (!std::exchange(m_preparing, true))
        m_document.prepare({m_revision, use(), m_shown});
}

PageUse BesideCommands::use() const
{
    return m_state == State::Starting || m_refused ? PageUse::Load : PageUse::Change;
}

/// Texts that take long to make ready are made ready less often.
std::chrono::milliseconds BesideCommands::pauseInTyping() const
{
    return std::clamp(m_cost, shortestPause, longestPause);
}

/// What has happened meanwhile can ask for another form of the same text.
bool BesideCommands::isUsable(const PageText &page) const
{
    if (use() == PageUse::Load)
        return !page.shown.empty() || page.page.html().empty();
    return !page.change || (m_shown && m_shown->revision == page.base);
}

void BesideCommands::prepared(std::shared_ptr<const PageText> page)
{
    m_preparing = false;
    if (!page && m_state == State::Starting) {
        m_state = State::Ended;
        m_page.showNote(BesideNote::State, noMemoryNote);
    }
    if (!isActive() || !page)
        return;
    if (page->revision < m_firstRevision || !isUsable(*page))
        return prepare();
    m_newest = std::move(page);
    m_cost = m_newest->cost;
    if (m_newest->revision != m_revision)
        m_document.startTimer(pauseInTyping()); // changed meanwhile, and the pause may have come to nothing
    showNewest();
}

void BesideCommands::showNewest()
{
    if (m_state == State::Starting) {
        m_state = State::Loading;
        m_shown = m_newest;
        if (!m_page.load(m_path, m_shown)) {
            m_state = State::Ended;
            m_page.showNote(BesideNote::State, noEngineNote);
        }
    } else if (m_state == State::Following && !m_asking && m_shown != m_newest) {
        m_shown = m_newest;
        if (!std::exchange(m_refused, false))
            return askToShow();
        m_state = State::Loading;
        m_page.reload(m_shown);
    }
}

void BesideCommands::askToShow()
{
    const auto caret = std::to_string(caretElement());
    if (!m_shown->change)
        return ask("show(" + m_shown->marked + ", " + caret + ")");
    const auto &change = *m_shown->change;
    std::string places;
    for (const auto place : {change.parent, change.previous, change.next, change.before.start,
             change.before.end, change.after.end - change.before.end})
        places += std::to_string(place) + ", ";
    ask("change(" + places + m_shown->marked + ", " + caret + ")");
}

void BesideCommands::ask(const std::string &call)
{
    m_asking = true;
    m_outlined = caretElement();
    m_page.ask("following." + call);
}

void BesideCommands::pageReady()
{
    if (m_state != State::Loading)
        return;
    m_state = State::Following;
    m_justLoaded = true;
    m_brokenShown = m_broken.empty();
    clearOverdueNote();
    askToShow();
}

void BesideCommands::answered(std::string_view answer)
{
    m_asking = false;
    if (m_state != State::Following)
        return;
    clearOverdueNote();
    if (answer != "done") {
        m_refused = true;
        m_newest.reset();
        // What a page refuses that has just been loaded it would refuse again.
        if (!std::exchange(m_justLoaded, false))
            m_document.startTimer(pauseBeforeLoading);
        return;
    }
    m_justLoaded = false;
    showNewest();
    showBroken();
    showCaret();
}

void BesideCommands::answerOverdue()
{
    m_overdue = isActive();
    if (m_overdue)
        m_page.showNote(BesideNote::State, busyNote);
}

void BesideCommands::clearOverdueNote()
{
    if (std::exchange(m_overdue, false))
        m_page.showNote(BesideNote::State, {});
}

Offset BesideCommands::caretElement() const
{
    return m_shown ? m_shown->elementAtCaret(m_document.caret()) : -1;
}

void BesideCommands::caretMoved()
{
    showCaret();
}

/// Whether the page is the text as it is, and is waiting.
bool BesideCommands::mayAsk() const
{
    return m_state == State::Following && !m_asking && !m_refused && m_shown
        && m_shown->revision == m_revision;
}

void BesideCommands::showCaret()
{
    if (mayAsk() && caretElement() != m_outlined)
        ask("caret(" + std::to_string(caretElement()) + ")");
}

void BesideCommands::outlineBroken(const std::vector<Offset> &places)
{
    m_broken = places;
    m_brokenShown = false;
    showBroken();
}

void BesideCommands::showBroken()
{
    if (!mayAsk() || m_brokenShown)
        return;
    m_brokenShown = true;
    std::string tags;
    for (const auto place : m_broken)
        tags += std::to_string(m_shown->elementAt(place)) + ',';
    ask("broken([" + tags + "])");
}

void BesideCommands::pageEnded()
{
    if (!isActive())
        return;
    m_page.unload();
    m_state = State::Ended;
    m_page.showNote(BesideNote::State, endedNote);
}

void BesideCommands::pageMessage(std::string_view message)
{
    if (message == "ready")
        return pageReady();
    const auto blank = message.find(' ');
    const auto tag = blank == message.npos ? std::nullopt : numberIn(message.substr(blank + 1));
    // Of a text that has changed since, the places are not known.
    if (!tag || m_state != State::Following || !m_shown || m_shown->revision != m_revision)
        return;
    const auto element = m_shown->elementFrom(*tag);
    if (element && message.starts_with("click "))
        m_document.selectText({*tag, *tag});
    else if (element && message.starts_with("pick "))
        m_document.selectText(*element);
}

} // namespace kevra
