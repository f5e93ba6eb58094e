// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/text_requests_qt.h"

#include <QtCore/QBuffer>

#include <utility>

namespace kevra {

TextRequests::TextRequests(std::function<void()> partRefused)
    : m_partRefused(std::move(partRefused))
{
}

void TextRequests::setPage(std::shared_ptr<const PageText> page)
{
    m_page = std::move(page);
}

std::optional<QUrl> TextRequests::route(const QUrl &url, Resource kind, bool sends)
{
    const auto next = PageRequests::route(url, kind, sends);
    if (!next && m_page && kind != Resource::MainFrame)
        m_partRefused();
    return next;
}

SchemeAnswer TextRequests::answer(const QUrl &url)
{
    // What the disk has under the document's name is another frame's or nobody's.
    if (!m_page || url != address(document()))
        return PageRequests::answer(url);
    SchemeAnswer answer{PageAnswer::Kind::File, {}, {}};
    auto content = std::make_unique<QBuffer>();
    content->setData(QByteArray::fromStdString(m_page->shown));
    content->open(QIODevice::ReadOnly);
    answer.file = {std::move(content), "text/html; charset=utf-8"};
    return answer;
}

} // namespace kevra
