// SPDX-License-Identifier: MIT
#pragma once

namespace brevant {

class Bundle;
class Calendar;
class CaseMapping;
class Clock;
class CloudDatabase;
class Coder;
class FileManager;
class ImageCodec;
class LiveActivityCenter;
class Log;
class ProcessInfo;
class RandomSource;
class SharedSettings;
class TaskQueue;
class UserNotificationCenter;

// Everything that the outside decides, handed to the constructors of whoever needs it. The services
// are owned by the process's entry and outlive every object that was given this value; copies are
// cheap and refer to the same services.
struct Platform {
  const Clock& clock;
  const Calendar& calendar;
  FileManager& files;
  SharedSettings& settings;
  const Bundle& bundle;
  const ImageCodec& images;
  const CaseMapping& caseMapping;
  const Coder& coder;
  const ProcessInfo& process;
  RandomSource& random;
  CloudDatabase& cloud;
  UserNotificationCenter& notifications;
  LiveActivityCenter& liveActivities;
  TaskQueue& tasks;
  Log& log;
};

}  // namespace brevant
