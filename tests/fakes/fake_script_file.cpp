// A script read from the file named by VMC_FAKE_SCRIPT when the test
// modules are first loaded, so that a program that knows nothing of the
// fakes (an example, a demo) can run against scripted cameras.
//
// One answer per line; '#' starts a comment; '*' is "any" for a module,
// an entry or a number:
//   answer MODULE ENTRY CHILD CODE SUB VALUE1 VALUE2 ERROR
//   list   MODULE ENTRY CHILD CODE SUB ERROR VALUE...   (detection: code, id pairs)
//   text   MODULE ENTRY CHILD CODE ERROR TEXT TO THE END OF THE LINE
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "fake.h"

namespace {

bool Number(const std::string& word, uint32_t* value) {
    if (word == "*") {
        *value = FAKE_ANY;
        return true;
    }
    char* end = nullptr;
    unsigned long n = std::strtoul(word.c_str(), &end, 0);
    *value = static_cast<uint32_t>(n);
    return !word.empty() && *end == '\0';
}

const char* Name(const std::string& word) { return word == "*" ? nullptr : word.c_str(); }

bool ApplyLine(const std::string& line) {
    std::istringstream in(line);
    std::string verb, module, entry;
    if (!(in >> verb) || verb[0] == '#') return true;
    if (!(in >> module >> entry)) return false;
    std::string word;
    std::vector<uint32_t> numbers;
    const size_t fixed = verb == "answer" ? 6 : verb == "list" ? 4 : verb == "text" ? 3 : 0;
    if (!fixed) return false;
    for (size_t i = 0; i < fixed; ++i) {
        uint32_t n = 0;
        if (!(in >> word) || !Number(word, &n)) return false;
        numbers.push_back(n);
    }
    if (verb == "answer") {
        FAKE_SetAnswer(Name(module), Name(entry), numbers[0], numbers[1], numbers[2], numbers[3], numbers[4],
                       numbers[5]);
    } else if (verb == "list") {
        std::vector<uint32_t> values;
        for (uint32_t n = 0; in >> word && Number(word, &n);) values.push_back(n);
        // A detection list holds (device code, id) pairs; its count is of cameras.
        const size_t count = entry == "INT_DetectDevice" ? values.size() / 2 : values.size();
        FAKE_SetList(Name(module), Name(entry), numbers[0], numbers[1], numbers[2], values.data(),
                     static_cast<uint32_t>(count), numbers[3]);
    } else {
        std::string text;
        std::getline(in >> std::ws, text);
        FAKE_SetText(Name(module), Name(entry), numbers[0], numbers[1], text.c_str(), numbers[2]);
    }
    return true;
}

__attribute__((constructor)) void LoadScriptFile() {
    const char* path = std::getenv("VMC_FAKE_SCRIPT");
    if (!path || !*path) return;
    std::ifstream file(path);
    if (!file) {
        std::fprintf(stderr, "fake modules: cannot read the script %s\n", path);
        return;
    }
    std::string line;
    for (int number = 1; std::getline(file, line); ++number)
        if (!ApplyLine(line)) std::fprintf(stderr, "fake modules: %s:%d: not understood: %s\n", path, number, line.c_str());
}

}  // namespace
