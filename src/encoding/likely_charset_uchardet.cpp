// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/likely_charset.h"

#include <uchardet/uchardet.h>

#include <memory>

namespace kevra {

std::string likelyCharset(std::string_view bytes)
{
    const std::unique_ptr<uchardet, decltype(&uchardet_delete)> detector(uchardet_new(), uchardet_delete);
    if (uchardet_handle_data(detector.get(), bytes.data(), bytes.size()) != 0)
        return {};
    uchardet_data_end(detector.get());
    return uchardet_get_charset(detector.get());
}

} // namespace kevra
