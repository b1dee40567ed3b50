#include "tools/quor/report/ReportPage.h"

#include "tools/quor/Version.h"
#include "tools/quor/assets/Assets.h"
#include "tools/quor/manual/Html.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <zlib.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>

namespace Veld::Quor::Tools {

namespace {

static_assert(std::endian::native == std::endian::little, "the arrays are written as they are in memory");

std::string Deflate(std::string_view bytes)
{
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::string packed(size, '\0');
    const int status = compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
        reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()), 6);
    if (status != Z_OK)
        throw std::bad_alloc(); // what else can go wrong with a buffer that is large enough
    packed.resize(size);
    return packed;
}

std::string Base64(std::string_view bytes)
{
    static constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t j = 0; j < 3; ++j)
            group = group << 8U | (i + j < bytes.size() ? static_cast<unsigned char>(bytes[i + j]) : 0U);
        for (std::size_t j = 0; j < 4; ++j)
            text += i + j > bytes.size() ? '=' : digits[group >> (18U - 6U * j) & 63U];
    }
    return text;
}

std::string DataElement(const std::string& id, std::string_view bytes)
{
    return fmt::format("<script type=\"text/plain\" id=\"{}\">{}</script>\n", id, Base64(Deflate(bytes)));
}

std::string ArrayElements(
    const std::vector<ReportValues>& values, const std::function<void(std::size_t, std::size_t)>& progress)
{
    const auto bytesOf = [](const ReportValues& array) { return array.size() * sizeof(float); };
    std::size_t all = 0;
    for (const ReportValues& array : values)
        all += bytesOf(array);
    std::size_t done = 0;
    std::string elements;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i].empty())
            continue; // as those of another array
        progress(done, all);
        elements += DataElement(fmt::format("values-{}", i),
            {reinterpret_cast<const char*>(values[i].data()), bytesOf(values[i])});
        done += bytesOf(values[i]);
    }
    return elements;
}

} // namespace

std::string ReportPage(const std::string& title, const nlohmann::ordered_json& report,
    const std::vector<ReportValues>& values, const std::function<void(std::size_t, std::size_t)>& progress)
{
    const std::string frame = Asset("report/report.html");
    const std::string json = report.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    std::string page;
    std::size_t at = 0;
    for (std::size_t mark = frame.find("{{"); mark != std::string::npos; mark = frame.find("{{", at)) {
        const std::size_t end = frame.find("}}", mark);
        const std::string name = frame.substr(mark + 2, end - mark - 2);
        page += frame.substr(at, mark - at);
        page += name == "title" ? EscapeHtml(title)
            : name == "data"    ? DataElement("data", json)
            : name == "arrays"  ? ArrayElements(values, progress)
            : name == "version" ? EscapeHtml(GetVersion())
                                : Asset(name);
        at = end + 2;
    }
    return page + frame.substr(at);
}

} // namespace Veld::Quor::Tools
