#include "camera/profile_json_reader.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <set>

namespace vcam::profile_json {
namespace {

uint64_t Limited(const Node& node, uint64_t number, uint64_t max) {
    if (number > max) node.Fail(std::to_string(number) + " is too large (at most " + std::to_string(max) + ")");
    return number;
}

// Parses the whole of `text` as a decimal or 0x-hexadecimal number.
bool ParseUnsigned(const std::string& text, uint64_t* number) {
    const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const std::string digits = hex ? text.substr(2) : text;
    const auto isDigit = [hex](unsigned char c) { return hex ? std::isxdigit(c) != 0 : std::isdigit(c) != 0; };
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), isDigit)) return false;
    errno = 0;
    *number = std::strtoull(digits.c_str(), nullptr, hex ? 16 : 10);
    return errno == 0;
}

// The parser keeps the last of two equal keys without a word; this finds them,
// following the path as the parser walks the document.
class DuplicateKeyCheck {
public:
    bool operator()(int, json::parse_event_t event, json& parsed) {
        switch (event) {
        case json::parse_event_t::object_start: frames_.push_back({}); break;
        case json::parse_event_t::array_start: frames_.push_back({.array = true}); break;
        case json::parse_event_t::key: {
            const std::string key = parsed.get<std::string>();
            if (!frames_.back().keys.insert(key).second) {
                const std::string path = Path();
                throw Problem{path.empty() ? key : path + "." + key, "duplicate key"};
            }
            frames_.back().key = key;
            break;
        }
        case json::parse_event_t::object_end:
        case json::parse_event_t::array_end:
            frames_.pop_back();
            ValueDone();
            break;
        case json::parse_event_t::value: ValueDone(); break;
        }
        return true;
    }

private:
    struct Frame {
        bool array = false;
        size_t index = 0;
        std::string key;
        std::set<std::string> keys;
    };

    void ValueDone() {
        if (!frames_.empty() && frames_.back().array) ++frames_.back().index;
    }
    // The path of the innermost open container.
    std::string Path() const {
        std::string path;
        for (size_t i = 0; i + 1 < frames_.size(); ++i) {
            const Frame& frame = frames_[i];
            if (frame.array) {
                path.append("[").append(std::to_string(frame.index)).append("]");
            } else {
                if (!path.empty()) path.append(".");
                path.append(frame.key);
            }
        }
        return path;
    }

    std::vector<Frame> frames_;
};

// Library messages start with a bracketed tag that means nothing to a reader.
std::string WithoutTag(const std::string& message) {
    if (message.empty() || message[0] != '[') return message;
    const size_t end = message.find("] ");
    return end == std::string::npos ? message : message.substr(end + 2);
}

}  // namespace

json Parse(const std::string& text) {
    try {
        return json::parse(text, DuplicateKeyCheck());
    } catch (const json::parse_error& error) {
        throw Problem{"", "not valid JSON: " + WithoutTag(error.what())};
    }
}

std::string Quoted(std::string_view text) { return json(std::string(text)).dump(); }

std::string TypeOf(const json& value) {
    switch (value.type()) {
    case json::value_t::null: return "null";
    case json::value_t::boolean: return "a boolean";
    case json::value_t::string: return "a string";
    case json::value_t::array: return "an array";
    case json::value_t::object: return "an object";
    default: return "a number";
    }
}

void ExpectObject(const Node& node, std::initializer_list<std::string_view> allowed) {
    if (!node.value.is_object()) node.Fail("expected an object, found " + TypeOf(node.value));
    for (const auto& [key, value] : node.value.items())
        if (std::find(allowed.begin(), allowed.end(), key) == allowed.end()) node.Key(key).Fail("unknown key");
}

std::optional<Node> Member(const Node& object, std::string_view key) {
    if (!object.value.contains(std::string(key))) return std::nullopt;
    return object.Key(key);
}

Node At(const Node& object, std::string_view key) {
    if (auto member = Member(object, key)) return *member;
    return object;
}

std::string String(const Node& node) {
    if (!node.value.is_string()) node.Fail("expected a string, found " + TypeOf(node.value));
    return node.value.get<std::string>();
}

bool Bool(const Node& node) {
    if (!node.value.is_boolean()) node.Fail("expected true or false, found " + TypeOf(node.value));
    return node.value.get<bool>();
}

double Real(const Node& node) {
    if (!node.value.is_number()) node.Fail("expected a number, found " + TypeOf(node.value));
    const double number = node.value.get<double>();
    if (number < 0) node.Fail("must not be negative");
    return number;
}

uint64_t Unsigned(const Node& node, uint64_t max) {
    const json& value = node.value;
    if (value.is_number_unsigned()) return Limited(node, value.get<uint64_t>(), max);
    if (value.is_number_integer()) node.Fail("must not be negative");
    if (value.is_number_float()) {
        const double number = value.get<double>();
        if (number < 0) node.Fail("must not be negative");
        if (number >= 18446744073709551616.0) node.Fail(value.dump() + " is too large");
        if (number != static_cast<double>(static_cast<uint64_t>(number)))
            node.Fail("expected a whole number, found " + value.dump());
        return Limited(node, static_cast<uint64_t>(number), max);
    }
    if (value.is_string()) {
        const std::string text = value.get<std::string>();
        uint64_t number = 0;
        if (text.rfind("0x", 0) != 0 || !ParseUnsigned(text, &number))
            node.Fail("expected a number or a hexadecimal string like \"0x1000000\", found " + value.dump());
        return Limited(node, number, max);
    }
    node.Fail("expected a number, found " + TypeOf(value));
}

uint32_t U32(const Node& node) { return static_cast<uint32_t>(Unsigned(node)); }

uint32_t Positive(const Node& node) {
    const uint32_t number = U32(node);
    if (number == 0) node.Fail("must not be 0");
    return number;
}

uint64_t Size(const Node& node) {
    if (!node.value.is_string() || node.value.get<std::string>().rfind("0x", 0) == 0) return Unsigned(node, ~0ull);
    static const std::pair<std::string_view, unsigned> kUnits[] = {
        {"TiB", 40}, {"GiB", 30}, {"MiB", 20}, {"KiB", 10}, {"B", 0}};
    std::string text = node.value.get<std::string>();
    unsigned shift = 0;
    for (const auto& [unit, bits] : kUnits) {
        if (text.size() > unit.size() && text.compare(text.size() - unit.size(), unit.size(), unit) == 0) {
            text.resize(text.size() - unit.size());
            shift = bits;
            break;
        }
    }
    while (!text.empty() && text.back() == ' ') text.pop_back();
    uint64_t number = 0;
    if (!ParseUnsigned(text, &number) || number > (~0ull >> shift))
        node.Fail("expected a size like \"16GiB\" (units B, KiB, MiB, GiB, TiB), found " + node.value.dump());
    return number << shift;
}

}  // namespace vcam::profile_json
