// Reading JSON values with their place in the file: every value knows its
// path (cameras[1].heads[0].colour), and every reader refuses what it can't
// use by throwing a Problem that names the path.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

namespace vcam::profile_json {

using nlohmann::json;

// What is wrong, and where; an empty place is the whole document.
struct Problem {
    std::string where;
    std::string what;
};

// A JSON value and its path in the file.
struct Node {
    const json& value;
    std::string path;

    Node Key(std::string_view key) const {
        return {value.at(std::string(key)), path.empty() ? std::string(key) : path + "." + std::string(key)};
    }
    Node Item(size_t index) const { return {value.at(index), path + "[" + std::to_string(index) + "]"}; }
    [[noreturn]] void Fail(const std::string& what) const { throw Problem{path, what}; }
};

// Parses a document; two equal keys in one object are a Problem, as are syntax errors.
json Parse(const std::string& text);

std::string Quoted(std::string_view text);
std::string TypeOf(const json& value);

// An object whose keys must all be among `allowed`.
void ExpectObject(const Node& node, std::initializer_list<std::string_view> allowed);
std::optional<Node> Member(const Node& object, std::string_view key);
// Where a rule about `key` is reported: the key itself when the object has it,
// else the object (the value came from a base camera or the defaults).
Node At(const Node& object, std::string_view key);

std::string String(const Node& node);
bool Bool(const Node& node);
// A number, not negative.
double Real(const Node& node);
// A whole number: a JSON number, or a string "0x..." since JSON has no hexadecimal literal.
uint64_t Unsigned(const Node& node, uint64_t max = std::numeric_limits<uint32_t>::max());
uint32_t U32(const Node& node);
uint32_t Positive(const Node& node);
// A byte count: a number, or a string with a binary unit such as "16GiB" or "512 MiB".
uint64_t Size(const Node& node);

template <class Read>
auto ArrayOf(const Node& node, Read read) {
    if (!node.value.is_array()) node.Fail("expected an array, found " + TypeOf(node.value));
    std::vector<decltype(read(node))> items;
    for (size_t i = 0; i < node.value.size(); ++i) items.push_back(read(node.Item(i)));
    return items;
}

}  // namespace vcam::profile_json
