// SPDX-License-Identifier: GPL-3.0-or-later
// The requests of a page whose document is the text in the editor: nothing is written for it.
#pragma once

#include "beside/page_text.h"
#include "preview/page_requests_qt.h"

#include <functional>
#include <memory>

namespace kevra {

class TextRequests : public PageRequests {
public:
    /// `partRefused` is called for each part of the page that the request rules refuse.
    explicit TextRequests(std::function<void()> partRefused);

    /// What the document's address is answered with from now on; null: there is no page.
    void setPage(std::shared_ptr<const PageText> page);
    [[nodiscard]] bool hasPage() const { return m_page != nullptr; }

    [[nodiscard]] std::optional<QUrl> route(const QUrl &url, Resource kind, bool sends) override;
    [[nodiscard]] SchemeAnswer answer(const QUrl &url) override;

private:
    std::function<void()> m_partRefused;
    std::shared_ptr<const PageText> m_page;
};

} // namespace kevra
