// SPDX-License-Identifier: MIT
#pragma once

namespace brevant {

class NotificationService;

// The program from its arguments to its exit code. Without a notification service it becomes
// `brevant-session` for the commands that need one: the message bus behind it would make every
// start of the program longer.
int runProgram(int argc, const char* const* argv, NotificationService* notifications);

}  // namespace brevant
