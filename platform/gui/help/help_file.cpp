#include "platform/gui/help/help_file.h"

#include <QFile>
#include <QFileInfo>
#include <charconv>
#include <string_view>

#include "platform/text/text_encoding.h"

namespace platform {
namespace {

constexpr qint64 kLargestFile = 1 << 20;     // bytes
constexpr std::size_t kLongestText = 16384;  // UTF-16 units

std::string ReadWhole(const std::filesystem::path& file) {
    QFile opened(file);
    const bool fits = QFileInfo(opened).isFile() && opened.size() <= kLargestFile;
    return fits && opened.open(QIODevice::ReadOnly) ? opened.read(opened.size()).toStdString() : "";
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the first line off the rest.
std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return Trimmed(line);
}

/// Whether a line opens a topic, which one, and under what title.
bool IsTopicLine(std::string_view line, DWORD* topic, std::string_view* title) {
    if (!line.starts_with('[')) return false;
    const char* end = line.data() + line.size();
    const auto [stopped, error] = std::from_chars(line.data() + 1, end, *topic);
    if (error != std::errc() || stopped == end || *stopped != ']') return false;
    *title = Trimmed(line.substr(static_cast<std::size_t>(stopped - line.data()) + 1));
    return true;
}

/// Joins the lines of paragraphs, keeps paragraphs and list items apart.
class TopicText {
public:
    explicit TopicText(std::string_view title) : text_(title), gap_("\n\n") {}

    void Add(std::string_view line) {
        if (line.empty()) {
            gap_ = "\n\n";
            return;
        }
        if (line.starts_with("- ") && gap_ == " ") gap_ = "\n";
        text_.append(gap_).append(line);
        gap_ = " ";
    }

    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    std::string text_;
    std::string_view gap_;  ///< what divides the next line from the text so far
};

std::u16string Cut(std::u16string text) {
    if (text.size() <= kLongestText) return text;
    const bool splitsPair = (text[kLongestText - 1] & 0xFC00) == 0xD800;
    text.resize(splitsPair ? kLongestText - 1 : kLongestText);
    return text;
}

}  // namespace

std::u16string ReadHelpTopic(const std::filesystem::path& file, DWORD topic) {
    const std::string content = ReadWhole(file);
    std::string_view rest = content;
    if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
    DWORD opened = 0;
    std::string_view title;
    bool found = false;
    while (!rest.empty() && !found) {
        found = IsTopicLine(TakeLine(rest), &opened, &title) && opened == topic;
    }
    if (!found) return {};
    TopicText text(title);
    while (!rest.empty()) {
        std::string_view next;
        const std::string_view line = TakeLine(rest);
        if (IsTopicLine(line, &opened, &next)) break;
        text.Add(line);
    }
    return Cut(Utf16(text.Text()));
}

}  // namespace platform
