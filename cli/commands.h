// SPDX-License-Identifier: MIT

// The commands by theme: each function describes its commands to the command line.
#pragma once

#include "cli/command_line.h"

namespace brevant {

void addSceneCommand(CommandLine& line);       // scene
void addQueryCommands(CommandLine& line);      // activities, categories, category
void addStatusCommand(CommandLine& line);      // status
void addChangeCommands(CommandLine& line);     // start, stop, pause, resume
void addWidgetCommands(CommandLine& line);     // widgets, timeline, snapshot, placeholder, intent
void addLiveCommands(CommandLine& line);       // live …
void addReminderCommands(CommandLine& line);   // reminders …
void addPictureCommands(CommandLine& line);    // icon, picture
void addLinkCommand(CommandLine& line);        // open
void addContainerCommands(CommandLine& line);  // cloud, doctor, sample

void addCommands(CommandLine& line);  // all of them

}  // namespace brevant
