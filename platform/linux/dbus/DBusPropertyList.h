#pragma once

#include <QVariant>

#include "platform/PropertyList.h"

namespace quorvane {

/// A value as it travels on D-Bus: a dictionary as `a{sv}`, an array as `av`.
QVariant toDBus(const PropertyList& value);

/// A value that came over D-Bus; nothing for what is no property list. What is nested too deep is left out.
PropertyList fromDBus(const QVariant& value);

} // namespace quorvane
