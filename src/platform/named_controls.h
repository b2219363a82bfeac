// Finding the controls of the interface file by their names.
#pragma once

#include <QObject>
#include <QString>

namespace platform {

/// The control of this type and name below `root`. A name that the interface file does not have is a bug, and
/// ends the program when it starts.
template <typename Control>
Control& control(const QObject& root, const char* name) {
  Control* found = root.findChild<Control*>(QString::fromLatin1(name));
  if (found == nullptr) qFatal("The interface has no control named %s", name);
  return *found;
}

}  // namespace platform
