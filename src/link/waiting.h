#pragma once

namespace eculink {

struct Link;

// What keeps a unit from being heard, worst first.
enum class Obstacle { PortAbsent, NoRights, Busy, NotOpened, NotKept, Unanswered, NoFrames, Silent, None };

// What was heard before says nothing about the line now.
void ForgetLine(Link& link);
// Looks, from outside, why no unit is heard; once a second, never from the frame path; opens nothing.
Obstacle FindObstacle(const Link& link);
void ShowWaiting(Link& link);
// The link in words, for the status bar.
void ShowLinkState(Link& link);

}  // namespace eculink
