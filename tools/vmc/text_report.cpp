#include "text_report.h"

#include <cstdio>

namespace vmctool {
namespace {

constexpr size_t kLabelWidth = 32;
constexpr size_t kValueColumn = 4 + kLabelWidth + 1;
constexpr size_t kLineWidth = 100;
constexpr size_t kWholeList = 16;  // entries a list shows in full
constexpr size_t kListHead = 10;   // of a longer list: entries shown from the start
constexpr size_t kListTail = 2;    // and from the end

// Columns a text takes: UTF-8 continuation bytes take none.
size_t Columns(const std::string& text) {
    size_t columns = 0;
    for (unsigned char c : text) columns += (c & 0xC0) != 0x80;
    return columns;
}

// Breaks after ", " so that no line passes kLineWidth, unless one item is longer by itself.
std::vector<std::string> Wrap(const std::string& text) {
    const size_t room = kLineWidth - kValueColumn;
    std::vector<std::string> lines(1);
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(", ", start);
        end = end == std::string::npos ? text.size() : end + 2;
        const std::string item = text.substr(start, end - start);
        std::string& line = lines.back();
        if (!line.empty() && Columns(line) + Columns(item) > room + 1) {  // +1: a trailing space does not count
            while (!line.empty() && line.back() == ' ') line.pop_back();
            lines.push_back(item);
        } else {
            line += item;
        }
        start = end;
    }
    return lines;
}

}  // namespace

void TextReport::Add(const std::string& section, const std::string& label, const std::string& text) {
    Section* target = nullptr;
    for (Section& existing : sections_)
        if (existing.title == section) target = &existing;
    if (!target) target = &sections_.emplace_back(Section{section, {}});
    target->rows.push_back({label, text});
}

void TextReport::Print(const std::string& heading) const {
    std::printf("%s\n", heading.c_str());
    for (const Section& section : sections_) {
        std::printf("  %s\n", section.title.c_str());
        for (const Row& row : section.rows) {
            const std::vector<std::string> lines = Wrap(row.text);
            // Pad by columns, not bytes: labels may hold "µ".
            const size_t pad = kLabelWidth > Columns(row.label) ? kLabelWidth - Columns(row.label) : 0;
            std::printf("    %s%*s %s\n", row.label.c_str(), static_cast<int>(pad), "", lines[0].c_str());
            for (size_t i = 1; i < lines.size(); ++i)
                std::printf("%*s%s\n", static_cast<int>(kValueColumn), "", lines[i].c_str());
        }
    }
}

std::string JoinList(const std::vector<std::string>& items) {
    std::string text;
    const bool shortened = items.size() > kWholeList;
    for (size_t i = 0; i < items.size(); ++i) {
        if (shortened && i == kListHead) {
            text += ", ...";
            i = items.size() - kListTail;
        }
        if (!text.empty()) text += ", ";
        text += items[i];
    }
    if (shortened) text += " (" + std::to_string(items.size()) + " in all)";
    return text;
}

std::string JoinAll(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) text += (text.empty() ? "" : ", ") + item;
    return text;
}

}  // namespace vmctool
