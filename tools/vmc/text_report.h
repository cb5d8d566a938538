// Text for people: a heading, then sections of labelled rows; long values
// wrap at their commas, under the value column.
#pragma once

#include <string>
#include <vector>

namespace vmctool {

class TextReport {
public:
    // Adds a row to the section, which is created at its first row: a section with nothing to show is not printed.
    void Add(const std::string& section, const std::string& label, const std::string& text);
    void Print(const std::string& heading) const;

private:
    struct Row {
        std::string label, text;
    };
    struct Section {
        std::string title;
        std::vector<Row> rows;
    };
    std::vector<Section> sections_;
};

// "a, b, c". A long list shows its first and last entries and how many there are.
std::string JoinList(const std::vector<std::string>& items);
// "a, b, c", however many.
std::string JoinAll(const std::vector<std::string>& items);

}  // namespace vmctool
