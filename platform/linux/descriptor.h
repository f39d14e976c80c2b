// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace brevant {

// Owns a file descriptor; a negative number is none.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  int number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }

  // False when the system reports that something written before was lost.
  bool close();

 private:
  int number_ = -1;
};

}  // namespace brevant
