#include "batch/json_object.h"

#include "json.h"

namespace {

using tool::Json;

// The first fault stays: each of these functions ends the parsing by returning false.
class ObjectReader : public nlohmann::json_sax<Json> {
public:
    explicit ObjectReader(tool::Row& rowToFill) : row(rowToFill) {}

    bool null() override { return take(""); }
    bool boolean(bool value) override { return take(value ? "true" : "false"); }
    bool number_unsigned(number_unsigned_t value) override { return take(std::to_string(value)); }
    bool number_float(number_float_t, const string_t& written) override { return take(written); }
    bool string(string_t& value) override { return take(value); }
    bool binary(binary_t&) override { return refuse("it holds binary data"); }

    // Zero comes here only as it is written with a sign.
    bool number_integer(number_integer_t value) override {
        return take(value == 0 ? "-0" : std::to_string(value));
    }

    bool start_object(std::size_t) override {
        const bool outermost = !inObject;
        inObject = true;
        return outermost || refuseNested();
    }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return inObject ? refuseNested() : refuseKind(); }
    bool end_array() override { return true; }

    bool key(string_t& name) override {
        if (row.find(name) != nullptr) {
            return refuse("it has the key '" + name + "' twice");
        }
        row.values.push_back({name, {}});
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const Json::exception&) override {
        return refuse("it is no JSON at byte " + std::to_string(position));
    }

private:
    bool take(const std::string& text) {
        if (!inObject) {
            return refuseKind();
        }
        row.values.back().text = text;
        return true;
    }
    bool refuseKind() { return refuse("it is no JSON object"); }
    bool refuseNested() {
        return refuse("the value of '" + row.values.back().column + "' is no single value");
    }
    bool refuse(const std::string& reason) {
        row.fault = reason;
        return false;
    }

    tool::Row& row;
    bool inObject = false;
};

} // namespace

void tool::readJsonObject(const std::string& text, Row& row) {
    ObjectReader reader(row);
    if (!Json::sax_parse(text, &reader) || row.fault) {
        row.values.clear();
    }
}
