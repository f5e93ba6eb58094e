// SPDX-License-Identifier: GPL-3.0-or-later
// The page beside the text: when it is loaded, changed in place or reloaded, and how it and the caret find
// each other. One question is under way at a time, so a page that does not answer is left alone and costs
// nothing.
#pragma once

#include "beside/beside_note.h"
#include "beside/page_text.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kevra {

/// The dock with its page.
class BesidePage {
public:
    virtual ~BesidePage() = default;
    /// The page's text, in a process of its own, with what `path` lies in as its folder. False when there is
    /// no engine.
    [[nodiscard]] virtual bool load(const std::string &path, std::shared_ptr<const PageText> page) = 0;
    /// The same page with another text; the engine restores the scroll position.
    virtual void reload(std::shared_ptr<const PageText> page) = 0;
    virtual void unload() = 0; ///< the page and every script of it end
    virtual void ask(const std::string &call) = 0; ///< the page's following script; ends in answered()
    virtual void showNote(BesideNote kind, std::string_view text) = 0; ///< plain text; empty: none
    /// The file, in the browser that the user has chosen for the desktop. False when none was started.
    [[nodiscard]] virtual bool startBrowser(const std::string &path) = 0;
};

/// The text beside the page.
class BesideDocument {
public:
    virtual ~BesideDocument() = default;
    virtual void prepare(PageTextRequest request) = 0; ///< a copy of the text; ends in prepared()
    /// Ends in pauseOver(); a timer started before is stopped.
    virtual void startTimer(std::chrono::milliseconds time) = 0;
    [[nodiscard]] virtual Offset caret() const = 0;
    /// And bring it into view; an empty range leaves the keyboard.
    virtual void selectText(TextRange range) = 0;
};

class BesideCommands {
public:
    BesideCommands(BesidePage &page, BesideDocument &document);

    // What the user does.
    void open();
    void close();
    void reload();
    void stop();
    /// `path` is the text's file, empty for none; `saved`: it holds the text as it is.
    void openInBrowser(const std::string &path, bool saved);

    // What happens to the text.
    void textChanged();
    void caretMoved();
    void outlineBroken(const std::vector<Offset> &places); ///< in the text as it is; outlined in the page
    /// Another document, or a document under another name: `path` need not exist. `isPage`: false for a
    /// script.
    void setDocument(const std::string &path, bool isPage);

    // What was asked for has come.
    void pauseOver();
    void prepared(std::shared_ptr<const PageText> page); ///< null when there was no memory for it
    void answered(std::string_view answer);
    void answerOverdue();

    // What the page does.
    void pageReady();
    void pageEnded(); ///< its process has, not by unload()
    void pageMessage(std::string_view message);

private:
    enum class State { Closed, Script, Starting, Loading, Following, Ended };

    [[nodiscard]] bool isActive() const;
    [[nodiscard]] std::string_view noteOfOpening(const std::string &path, bool saved);
    void start();
    void prepare();
    [[nodiscard]] PageUse use() const;
    [[nodiscard]] std::chrono::milliseconds pauseInTyping() const;
    [[nodiscard]] bool isUsable(const PageText &page) const;
    void askToShow();
    void clearOverdueNote();
    void showNewest();
    void showCaret();
    void showBroken();
    [[nodiscard]] bool mayAsk() const;
    void ask(const std::string &call);
    [[nodiscard]] Offset caretElement() const;

    BesidePage &m_page;
    BesideDocument &m_document;
    State m_state = State::Closed;
    std::string m_path;
    bool m_isPage = true;
    std::uint64_t m_revision = 1; ///< of the document's text
    std::uint64_t m_firstRevision = 1; ///< texts before it were another document's
    std::shared_ptr<const PageText> m_newest; ///< made ready
    std::shared_ptr<const PageText> m_shown; ///< that the page has, or is being loaded with
    bool m_preparing = false;
    std::chrono::milliseconds m_cost{}; ///< of the last text made ready
    bool m_asking = false;
    bool m_refused = false; ///< the page did not take a change
    bool m_justLoaded = false;
    bool m_overdue = false; ///< the user has been notified
    std::vector<Offset> m_broken;
    bool m_brokenShown = true;
    Offset m_outlined = -1;
};

} // namespace kevra
