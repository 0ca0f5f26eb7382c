// SPDX-License-Identifier: MIT
#pragma once

#include "binder/windows/interface_loader.h"
#include "platform/bundle_reader.h"
#include "platform/session.h"

namespace dwellkey {

/// Reads the interface files as the toolkit's designer writes them.
class UiLoader final : public InterfaceLoader {
public:
    /// Both must outlive the loader.
    UiLoader(const BundleReader& bundleReader, ErrorLog& errorLog)
        : bundleReader_(bundleReader), errorLog_(errorLog) {}

    std::unique_ptr<QWidget> load(const std::string& name) override;

private:
    const BundleReader& bundleReader_;
    ErrorLog& errorLog_;
};

} // namespace dwellkey
