// SPDX-License-Identifier: MIT
// Which system the program runs on.
#pragma once

#include <QString>

#include <cstdint>

/// What a system says about itself. The fields are those of a Windows version record, with its
/// numbers and masks.
struct SystemVersion {
    /// A system whose version numbers have no published name gives its name itself; empty on
    /// those that leave it to the numbers.
    QString description;
    int platform = 0; ///< 1: Windows 95 and its successors, 2: Windows NT and its successors
    int majorVersion = 0;
    int minorVersion = 0;
    int build = 0;
    QString servicePackText; ///< "Service Pack 3"; a letter, with blanks, on platform 1
    // From NT 4.0 with service pack 6 on.
    int servicePackMajor = 0;
    int servicePackMinor = 0;
    std::uint32_t suiteMask = 0;
    int productType = 0; ///< 1: workstation, 2: domain controller, 3: server
};

/// The system of this machine. Its description is always there.
SystemVersion systemVersion();
