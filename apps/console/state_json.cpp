#include "console/state_json.h"

#include "program/program.h"
#include "program/variables.h"

namespace console {

namespace {

struct ToJson {
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(const std::string& text) const { return Text(text); }
};

Json OfTimers(const program::Program& program) {
    Json out = Json::object();
    for (const program::NamedTimer& row : program::NamedTimers()) {
        const platform::Timer& timer = row.get(program);
        out[std::string(row.name)] = {{"enabled", timer.Enabled()}, {"interval", timer.Interval()}};
    }
    return out;
}

Json OfPort(const eculink::Link& link) {
    const platform::SerialPort& port = link.shell.host.port;
    // A device's name is the system's own, in UTF-8 already.
    return {{"open", port.PortOpen()}, {"device", port.Device()}, {"settings", Text(link.state.lineSettings)}};
}

// A running limit by view; none before the first figure.
Json Limits(const std::array<std::optional<double>, eculink::Views>& limits) {
    Json out = Json::array();
    for (const std::optional<double>& limit : limits) out.push_back(limit ? Figure(*limit) : Json());
    return out;
}

Json Scale(const eculink::ChannelInfo& channel, const std::array<std::int32_t, eculink::Views>& ends) {
    Json out = Json::array();
    for (const std::int32_t end : ends) out.push_back(channel.hasScale ? Json(end) : Json());
    return out;
}

}  // namespace

Json OfState(const program::Program& program) {
    Json out = Done();
    for (const program::Variable& variable : program::Variables()) {
        out[std::string(variable.name)] = std::visit(ToJson{}, variable.get(program));
    }
    out["timers"] = OfTimers(program);
    out["port"] = OfPort(program.link);
    return out;
}

Json OfChannels(const program::Program& program) {
    const eculink::Record& record = program.link.RecCanali;
    Json channels = Json::array();
    for (std::size_t no = 0; no < program.link.DescrCanale.size(); ++no) {
        const eculink::ChannelInfo& channel = program.link.DescrCanale[no];
        const bool signal = no < record.Valore.size();  // the time axis behind them has no reading
        channels.push_back({{"no", no},
                            {"name", Text(channel.Nome)},
                            {"Valore", signal ? Text(record.Valore[no]) : Json("")},
                            {"Grezzo", signal ? Text(record.Grezzo[no]) : Json("")},
                            {"Minimo", Limits(channel.Minimo)},
                            {"Massimo", Limits(channel.Massimo)},
                            {"MinScala", Scale(channel, channel.MinScala)},
                            {"MaxScala", Scale(channel, channel.MaxScala)}});
    }
    Json out = Done();
    out["Progressivo"] = record.Progressivo;
    out["channels"] = std::move(channels);
    return out;
}

}  // namespace console
