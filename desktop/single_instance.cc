// SPDX-License-Identifier: MIT
#include "desktop/single_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <optional>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// Without its ending: of the lock and of the socket.
QString pathFor(const QString& container) {
  const QByteArray name = QDir(container).absolutePath().toUtf8();
  const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex().left(16);
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  return folder + u"/brevant-desktop-"_s + QString::fromLatin1(hash);
}

// Absent when the path is longer than the system takes.
std::optional<sockaddr_un> addressOf(const QString& path) {
  const QByteArray name = QFile::encodeName(path + u".socket"_s);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (static_cast<std::size_t>(name.size()) >= sizeof(address.sun_path)) return std::nullopt;
  std::copy(name.begin(), name.end(), address.sun_path);
  return address;
}

int openSocket() {
  return ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

const sockaddr* generic(const sockaddr_un& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

}  // namespace

std::unique_ptr<SingleInstance> SingleInstance::claim(const QString& container) {
  std::unique_ptr<SingleInstance> instance(new SingleInstance(pathFor(container)));
  // Held for as long as the process lives: only its death makes it stale, never its age.
  instance->lock_.setStaleLockTime(0);
  if (!instance->lock_.tryLock() && instance->lock_.error() == QLockFile::LockFailedError)
    return nullptr;
  instance->listen();
  return instance;
}

bool SingleInstance::tell(const QString& container, const QByteArray& word) {
  const std::optional<sockaddr_un> address = addressOf(pathFor(container));
  const int socket = openSocket();
  if (!address || socket < 0) return false;
  const auto length = static_cast<std::size_t>(word.size());
  const ssize_t sent =
      ::sendto(socket, word.constData(), length, 0, generic(*address), sizeof(*address));
  ::close(socket);
  return sent == word.size();
}

SingleInstance::SingleInstance(const QString& path) : path_(path), lock_(path + u".lock"_s) {}

SingleInstance::~SingleInstance() {
  if (socket_ < 0) return;
  notifier_.reset();
  ::close(socket_);
  QFile::remove(path_ + u".socket"_s);
}

// A socket of the same name was left by a process that died.
void SingleInstance::listen() {
  const std::optional<sockaddr_un> address = addressOf(path_);
  socket_ = openSocket();
  if (!address || socket_ < 0) return;
  QFile::remove(path_ + u".socket"_s);
  if (::bind(socket_, generic(*address), sizeof(*address)) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
  connect(notifier_.get(), &QSocketNotifier::activated, this, &SingleInstance::read);
}

void SingleInstance::read() {
  std::array<char, 1024> word = {};
  const ssize_t length = ::recv(socket_, word.data(), word.size(), 0);
  if (length > 0) Q_EMIT told(QByteArray(word.data(), length));
}

}  // namespace brevant
