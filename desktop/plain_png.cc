// SPDX-License-Identifier: MIT
#include "desktop/plain_png.h"

#include <QtEndian>
#include <algorithm>
#include <array>

namespace brevant {

namespace {

constexpr qsizetype kSignatureSize = 8, kFrameSize = 12;  // a part's length, name and checksum
constexpr std::array<QByteArrayView, 7> kDrawnFrom = {"IHDR", "PLTE", "tRNS", "gAMA",
                                                      "sRGB", "IDAT", "IEND"};

}  // namespace

QByteArray plainPng(const QByteArray& png) {
  QByteArray plain = png.left(kSignatureSize);
  for (qsizetype at = kSignatureSize; png.size() - at >= kFrameSize;) {
    const qsizetype length = qFromBigEndian<quint32>(png.constData() + at);
    if (length > png.size() - at - kFrameSize) return {};
    const auto name = QByteArrayView(png).sliced(at + 4, 4);
    const auto part = QByteArrayView(png).sliced(at, length + kFrameSize);
    if (std::find(kDrawnFrom.begin(), kDrawnFrom.end(), name) != kDrawnFrom.end())
      plain.append(part);
    at += part.size();
  }
  return plain;
}

}  // namespace brevant
