#pragma once

#include <QString>

namespace quorvane {

/// One of the sums that the kernel keeps of the memory of a process ("Rss", "Private_Dirty"), in kB.
long memory(qint64 process, const QByteArray& name);

/// Prints how often a process is woken while nothing happens.
void printIdleWakeUps(qint64 process, unsigned long seconds);

} // namespace quorvane
