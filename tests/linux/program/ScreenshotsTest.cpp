// The preferences window as people see it, kept as pictures in the build folder.

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include "linux/program/ProgramSession.h"
#include "linux/support/AccessibleTree.h"
#include "settings/AppRule.h"
#include "settings/DefaultInput.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {} // namespace
} // namespace quorvane
