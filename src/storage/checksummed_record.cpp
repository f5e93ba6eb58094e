// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/checksummed_record.h"

#include <array>
#include <charconv>
#include <cstring>

namespace kevra {
namespace {

constexpr std::string_view magic = "KEVRA record 1\n";

/// Removes a line with a number from the front.
std::optional<std::uint64_t> takeNumber(std::string_view &bytes)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    const auto length = static_cast<std::size_t>(end - bytes.data());
    if (error != std::errc() || length >= bytes.size() || bytes[length] != '\n')
        return std::nullopt;
    bytes.remove_prefix(length + 1);
    return number;
}

} // namespace

std::string withChecksum(std::initializer_list<std::string_view> fields)
{
    std::string body;
    std::size_t size = 0;
    for (const auto field : fields)
        size += field.size() + 24;
    body.reserve(size);
    for (const auto field : fields)
        body.append(std::to_string(field.size())).append(1, '\n').append(field);
    std::string out(magic);
    out.reserve(body.size() + 64);
    return out.append(std::to_string(fingerprint(body))).append(1, '\n').append(body);
}

std::optional<std::vector<std::string>> readChecksummed(std::string_view bytes)
{
    if (!bytes.starts_with(magic))
        return std::nullopt;
    bytes.remove_prefix(magic.size());
    const auto checksum = takeNumber(bytes);
    if (!checksum || *checksum != fingerprint(bytes))
        return std::nullopt;
    std::vector<std::string> fields;
    while (!bytes.empty()) {
        const auto length = takeNumber(bytes);
        if (!length || *length > bytes.size())
            return std::nullopt;
        fields.emplace_back(bytes.substr(0, *length));
        bytes.remove_prefix(*length);
    }
    return fields;
}

std::uint64_t fingerprint(std::string_view bytes)
{
    constexpr std::uint64_t prime = 0x9E3779B97F4A7C15U;
    const auto mix = [](std::uint64_t hash, std::uint64_t word) {
        hash = (hash ^ word) * prime;
        return hash ^ hash >> 29;
    };
    std::uint64_t hash = mix(prime, bytes.size());
    std::uint64_t word = 0;
    // Four independent hashes, so that the multiplications do not wait for one another.
    std::array<std::uint64_t, 4> hashes{1, 2, 3, 4};
    for (; bytes.size() >= sizeof hashes; bytes.remove_prefix(sizeof hashes)) {
        for (std::size_t i = 0; i < hashes.size(); ++i) {
            std::memcpy(&word, bytes.data() + i * sizeof word, sizeof word);
            hashes[i] = mix(hashes[i], word);
        }
    }
    for (const auto each : hashes)
        hash = mix(hash, each);
    for (; bytes.size() >= sizeof word; bytes.remove_prefix(sizeof word)) {
        std::memcpy(&word, bytes.data(), sizeof word);
        hash = mix(hash, word);
    }
    word = 0;
    if (!bytes.empty())
        std::memcpy(&word, bytes.data(), bytes.size());
    return mix(mix(hash, word), 0);
}

} // namespace kevra
