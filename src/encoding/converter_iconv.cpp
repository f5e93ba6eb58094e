// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/converter.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <mutex>
#include <utility>

namespace kevra {
namespace {

constexpr std::size_t smallestBlock = 64;
constexpr std::size_t largestBlock = 1 << 16;
constexpr auto failed = static_cast<std::size_t>(-1);

struct Closer {
    void operator()(iconv_t descriptor) const { iconv_close(descriptor); }
};
using Descriptor = std::unique_ptr<void, Closer>;

/// Null if the system does not support the conversion.
Descriptor openDescriptor(const std::string &from, const std::string &to)
{
    const auto descriptor = iconv_open(to.c_str(), from.c_str());
    return Descriptor(descriptor == reinterpret_cast<iconv_t>(-1) ? nullptr : descriptor);
}

/// A set that could be read must still be available when the text is saved, even if the system's files have
/// gone or no more files can be opened.
void keepLoaded(const std::string &from, const std::string &to)
{
    static std::mutex mutex;
    static std::map<std::pair<std::string, std::string>, Descriptor> kept;
    const std::scoped_lock lock(mutex);
    if (const auto [it, isNew] = kept.try_emplace({from, to}); isNew)
        it->second = openDescriptor(from, to);
}

class IconvConverter : public Converter {
public:
    explicit IconvConverter(Descriptor descriptor)
        : m_descriptor(std::move(descriptor))
    {
    }

    std::size_t convert(std::string_view in, std::string &out) override
    {
        auto *next = const_cast<char *>(in.data()); // iconv() does not write to it
        std::size_t left = in.size();
        while (left > 0 && step(&next, &left, out))
            ;
        while (step(nullptr, nullptr, out))
            ;
        return in.size() - left;
    }

private:
    /// Converts one block; true if there is more to do.
    bool step(char **in, std::size_t *left, std::string &out)
    {
        const auto room = std::clamp(left ? *left * 2 : 0, smallestBlock, largestBlock);
        const auto size = out.size();
        out.resize(size + room);
        auto *to = out.data() + size;
        std::size_t free = room;
        const bool full = iconv(m_descriptor.get(), in, left, &to, &free) == failed && errno == E2BIG;
        out.resize(size + room - free);
        return full;
    }

    Descriptor m_descriptor;
};

} // namespace

std::unique_ptr<Converter> Converter::between(const std::string &from, const std::string &to)
{
    auto descriptor = openDescriptor(from, to);
    if (!descriptor)
        return nullptr;
    keepLoaded(from, to);
    return std::make_unique<IconvConverter>(std::move(descriptor));
}

} // namespace kevra
