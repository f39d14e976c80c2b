// SPDX-License-Identifier: MIT
#include <csignal>
#include <cstdio>

#include "desktop/host.h"
#include "desktop/options.h"
#include "desktop/picture.h"
#include "desktop/translate.h"

int main(int argc, char** argv) {
  // A limit on files is an error of the write that meets it, to be told like any other.
  std::signal(SIGXFSZ, SIG_IGN);
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  const auto parsed = brevant::parseOptions(arguments);
  if (const auto* refusal = std::get_if<brevant::Refusal>(&parsed)) {
    std::fprintf(refusal->exitCode == 0 ? stdout : stderr, "%s\n", qPrintable(refusal->message));
    return refusal->exitCode;
  }
  const auto& options = std::get<brevant::Options>(parsed);
  brevant::useMessagesOfEnvironment();
  if (options.picture) return brevant::drawPicture(argc, argv, options);
  return brevant::runHost(argc, argv, options);
}
