// SPDX-License-Identifier: MIT
// Makes the simulated camera fail while the program runs, by one of the fault plans that are
// shipped with it.
#pragma once

#include <QtCore/QString>

namespace tour {

/// The plan is in force as long as the object lives.
class Faults {
public:
    /// plan: its name, for example "nuc-refused". Throws Failure when it cannot be put in force.
    explicit Faults(const QString& plan);
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

private:
    QString file; ///< that the simulated camera looks at
};

} // namespace tour
