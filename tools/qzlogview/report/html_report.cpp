#include "tools/qzlogview/report/html_report.h"

#include <algorithm>
#include <span>
#include <utility>

#include "tools/qzlogview/report/embedded_file.h"
#include "tools/qzlogview/report/json_text.h"

namespace zantlog::view {

namespace {

// The places in page.html that are filled in.
constexpr std::string_view kPolicyPlace = "@POLICY@";
constexpr std::string_view kStylePlace = "@STYLE@";
constexpr std::string_view kScriptPlace = "@SCRIPT@";
constexpr std::string_view kDataPlace = "@DATA@";

std::string base64(std::span<const uint8_t> bytes) {
    static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (size_t i = 0; i < bytes.size(); i += 3) {
        const auto byteAt = [&](size_t at) { return at < bytes.size() ? uint32_t{bytes[at]} : 0; };
        const uint32_t group = byteAt(i) << 16 | byteAt(i + 1) << 8 | byteAt(i + 2);
        const size_t digits = std::min<size_t>(bytes.size() - i, 3) + 1;
        for (size_t digit = 0; digit < 4; ++digit) {
            text += digit < digits ? kDigits[group >> (18 - 6 * digit) & 63] : '=';
        }
    }
    return text;
}

// Nothing but the page's own script and style runs, nothing is loaded, and no text can become markup.
std::string contentPolicy() {
    return "default-src 'none'; script-src 'sha256-" + base64(kPageScript.sha256) + "'; style-src 'sha256-" +
           base64(kPageStyle.sha256) +
           "'; base-uri 'none'; form-action 'none'; require-trusted-types-for 'script'; trusted-types 'none'";
}

std::pair<std::string_view, std::string_view> split(std::string_view text, std::string_view place) {
    const size_t at = text.find(place);
    return {text.substr(0, at), text.substr(at + place.size())};
}

std::string zonesJson(const std::vector<ReportZone> &zones) {
    std::string json;
    for (const ReportZone &zone : zones) {
        json += json.empty() ? "" : ",";
        json += "[" + jsonText(zone.name) + "," + std::to_string(zone.offset) + "]";
    }
    return "[" + json + "]";
}

void writeData(std::ostream &out, std::string_view id, std::string_view json) {
    out << "<script type=\"application/json\" " << id << ">" << json << "</script>\n";
}

void writeBeginning(std::ostream &out, const ReportSettings &settings) {
    const auto [untilPolicy, afterPolicy] = split(kPageMarkup.bytes, kPolicyPlace);
    const auto [untilStyle, afterStyle] = split(afterPolicy, kStylePlace);
    const auto [untilScript, afterScript] = split(afterStyle, kScriptPlace);
    const auto [untilData, afterData] = split(afterScript, kDataPlace);
    out << untilPolicy << contentPolicy() << untilStyle << kPageStyle.bytes << untilScript
        << kPageScript.bytes << untilData;
    writeData(out, "id=\"report\"",
              "{\"title\":" + jsonText(settings.title) + ",\"selection\":" + jsonText(settings.selection) +
                  ",\"zones\":" + zonesJson(settings.zones) + "}");
}

} // namespace

HtmlReport::HtmlReport(std::ostream &out, ReportSettings settings)
    : out_(out), settings_(std::move(settings)), block_(&settings_.names) {
    writeBeginning(out_, settings_);
}

bool HtmlReport::take(const Record &record) {
    block_.add(record);
    ++records_;
    if (block_.isFull()) {
        writeBlock();
    }
    return out_.good();
}

void HtmlReport::writeBlock() {
    writeData(out_, "class=\"records\"", block_.take());
}

// The count comes last, so that the page knows when it was cut short.
void HtmlReport::finish() {
    if (!block_.isEmpty()) {
        writeBlock();
    }
    writeData(out_, "id=\"end\"", "{\"records\":" + std::to_string(records_) + "}");
    out_ << split(kPageMarkup.bytes, kDataPlace).second;
    out_.flush();
}

} // namespace zantlog::view
