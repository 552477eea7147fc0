#pragma once

#include <string>

#include "sim/answer.h"

// One line, without its end: "ok" and every value as key=value, a list as its key once for each text, or "error" and
// the reason. A text with blanks stands in double quotes; a quote or control character in it is written \x22 and so on.
std::string AnswerText(const sim::Answer& answer);
