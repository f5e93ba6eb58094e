// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/converter.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>

namespace kevra {
namespace {

constexpr std::size_t smallestBlock = 64;
constexpr std::size_t largestBlock = 1 << 16;
constexpr auto failed = static_cast<std::size_t>(-1);

class IconvConverter : public Converter {
public:
    explicit IconvConverter(iconv_t descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~IconvConverter() override { iconv_close(m_descriptor); }
    IconvConverter(const IconvConverter &) = delete;
    IconvConverter &operator=(const IconvConverter &) = delete;

    std::size_t convert(std::string_view in, std::string &out) override
    {
        auto *next = const_cast<char *>(in.data()); // the interface is older than const
        std::size_t left = in.size();
        while (left > 0 && step(&next, &left, out))
            ;
        while (step(nullptr, nullptr, out))
            ;
        return in.size() - left;
    }

private:
    /// Appends one block; true when there is more to do.
    bool step(char **in, std::size_t *left, std::string &out)
    {
        const auto room = std::clamp(left ? *left * 2 : 0, smallestBlock, largestBlock);
        const auto size = out.size();
        out.resize(size + room);
        auto *to = out.data() + size;
        std::size_t free = room;
        const bool full = iconv(m_descriptor, in, left, &to, &free) == failed && errno == E2BIG;
        out.resize(size + room - free);
        return full;
    }

    iconv_t m_descriptor;
};

} // namespace

std::unique_ptr<Converter> Converter::between(const std::string &from, const std::string &to)
{
    const auto descriptor = iconv_open(to.c_str(), from.c_str());
    if (descriptor == reinterpret_cast<iconv_t>(-1))
        return nullptr;
    return std::make_unique<IconvConverter>(descriptor);
}

} // namespace kevra
