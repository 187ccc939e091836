#include "batch/worker_messages.h"

#include "json.h"
#include "text.h"

#include <sstream>

namespace {

using tool::Json;
using tool::Setting;

std::string lineOf(const Json& json) {
    std::ostringstream line;
    tool::printLine(line, json);
    return line.str();
}

Json toJson(const std::vector<Setting>& settings) {
    Json list = Json::array();
    for (const Setting& setting : settings) {
        list.push_back(
            {static_cast<int>(setting.kind), tool::fromLatin1(setting.name), setting.value});
    }
    return list;
}

std::vector<Setting> settingsFrom(const Json& list) {
    std::vector<Setting> settings;
    for (const Json& setting : list) {
        settings.push_back(tool::makeSetting(static_cast<Setting::Kind>(setting.at(0).get<int>()),
                                             setting.at(1), setting.at(2)));
    }
    return settings;
}

} // namespace

std::string tool::toLine(const WorkerOrder& order) {
    return lineOf({{"document", order.layout.document},
                   {"settings", toJson(order.layout.settings)},
                   {"params", order.layout.paramFiles},
                   {"images", order.layout.images},
                   {"fonts", order.layout.fonts},
                   {"mono", static_cast<int>(order.mono)},
                   {"columns", order.columns},
                   {"formatSample", order.formatSample},
                   {"folder", order.folder},
                   {"secondsARow", order.secondsARow}});
}

tool::WorkerOrder tool::readWorkerOrder(const std::string& line) {
    const Json json = Json::parse(line);
    WorkerOrder order;
    order.layout = {json.at("document"), settingsFrom(json.at("settings")), json.at("params"),
                    json.at("images"), json.at("fonts")};
    order.mono = static_cast<Mono>(json.at("mono").get<int>());
    json.at("columns").get_to(order.columns);
    json.at("formatSample").get_to(order.formatSample);
    json.at("folder").get_to(order.folder);
    json.at("secondsARow").get_to(order.secondsARow);
    return order;
}

std::string tool::toLine(const PictureOrder& order) {
    Json values = Json::array();
    for (const Value& value : order.values) {
        values.push_back(Json::array({value.column, value.text}));
    }
    return lineOf({{"output", order.output}, {"values", values}});
}

tool::PictureOrder tool::readPictureOrder(const std::string& line) {
    const Json json = Json::parse(line);
    PictureOrder order{json.at("output"), {}};
    for (const Json& value : json.at("values")) {
        order.values.push_back({value.at(0), value.at(1)});
    }
    return order;
}

std::string tool::toLine(const WorkerAnswer& answer) {
    return lineOf({{"code", static_cast<int>(answer.code)}, {"failure", answer.failure}});
}

tool::WorkerAnswer tool::readWorkerAnswer(const std::string& line) {
    const Json json = Json::parse(line);
    return {static_cast<ExitCode>(json.at("code").get<int>()), json.at("failure")};
}
