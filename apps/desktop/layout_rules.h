#pragma once

#include <span>
#include <string_view>

// What the plan of a page cannot see from kinds and names alone. A page that comes adds rows here.
namespace desktop {

enum class Place { Heading, Selector, Head, Text, Progress, Tool, Gauge, Strip };

// Where a control stands other than where its kind would put it. The name is that of a control or of a whole array.
struct PlaceRule {
    std::string_view page;  // empty: on every page
    std::string_view name;
    Place place;
};
std::span<const PlaceRule> PlaceRules();

// A button that belongs to a field, index by index.
struct ActionRule {
    std::string_view page;
    std::string_view action;
    std::string_view value;
};
std::span<const ActionRule> ActionRules();

// Figures of the engine that tell what an edit does: arrays of names, figures, units. In a line above the fields or in
// a column beside them.
struct LiveRule {
    std::string_view page;
    std::string_view label;
    std::string_view figure;
    std::string_view unit;
    bool above;
};
std::span<const LiveRule> LiveRules();

// A table whose header cells are edited in two arrays of fields.
struct AxesRule {
    std::string_view page;
    std::string_view grid;
    std::string_view columns;
    std::string_view rows;
    std::string_view columnCaption;
    std::string_view rowCaption;
};
std::span<const AxesRule> AxesRules();

// Pages whose text is what they are for; one that asks in its message strip has a picture for the question.
struct MessageRule {
    std::string_view page;
    const char* picture;
};
std::span<const MessageRule> MessageRules();

// The ending of the button that shows initial values beside the button that shows the values.
inline constexpr std::string_view TwinEnding = "Def";

}  // namespace desktop
