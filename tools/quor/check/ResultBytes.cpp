#include "tools/quor/check/ResultBytes.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools {

using nlohmann::ordered_json;

namespace {

constexpr const char* errorKey = "error";

/// With its length before it.
std::string Frame(const ordered_json& json)
{
    const std::vector<std::uint8_t> content = ordered_json::to_cbor(json);
    const std::uint64_t length = content.size();
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    bytes.append(content.begin(), content.end());
    return bytes;
}

} // namespace

std::string ToBytes(const DeckResult& result)
{
    auto known = ordered_json::array();
    for (const auto& [key, count] : result.known)
        known.push_back({key.code, key.file, key.text, count});
    return Frame({{"deck", result.deck}, {"failure", result.failure},
        {"status", static_cast<int>(result.status)}, {"counts", result.counts}, {"part", result.part},
        {"tally", result.tally}, {"known", known}, {"key", result.key}});
}

std::string ErrorBytes(const std::string& message)
{
    return Frame({{errorKey, message}});
}

std::optional<DeckResult> TakeResult(std::string& bytes)
{
    std::uint64_t length = 0;
    if (bytes.size() < sizeof length)
        return std::nullopt;
    std::memcpy(&length, bytes.data(), sizeof length);
    if (bytes.size() - sizeof length < length)
        return std::nullopt;
    const auto begin = bytes.begin() + sizeof length;
    const auto json = ordered_json::from_cbor(begin, begin + static_cast<std::ptrdiff_t>(length));
    bytes.erase(0, sizeof length + length);
    if (json.contains(errorKey))
        throw std::runtime_error(json[errorKey].get<std::string>());
    DeckResult result{json["deck"], json["failure"], static_cast<ExitStatus>(json["status"].get<int>()),
        json["counts"], json["part"], json["tally"]};
    result.key = json["key"];
    for (const ordered_json& row : json["known"])
        result.known.emplace(Baseline::Key{row[0], row[1], row[2]}, row[3].get<std::size_t>());
    return result;
}

} // namespace Veld::Quor::Tools
