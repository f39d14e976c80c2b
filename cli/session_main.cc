// SPDX-License-Identifier: MIT
#include "cli/program.h"
#include "platform/linux/notification_service.h"

int main(int argc, char** argv) {
  const auto service = brevant::makeNotificationService();
  return brevant::runProgram(argc, argv, service.get());
}
