// SPDX-License-Identifier: MIT
// Loads interface files: windows and views that are described, not programmed.
#pragma once

#include <memory>
#include <string>

class QWidget;
class QString;

namespace dwellkey {

/// The toolkit's reader of such files is a large library, so only a program that shows such windows
/// links and installs a loader.
class InterfaceLoader {
public:
    InterfaceLoader() = default;
    InterfaceLoader(const InterfaceLoader&) = delete;
    InterfaceLoader& operator=(const InterfaceLoader&) = delete;
    virtual ~InterfaceLoader() = default;

    /// The outermost widget of the file "<name>.ui" among our resources; null, and a line in the
    /// log, when it cannot be loaded.
    virtual std::unique_ptr<QWidget> load(const std::string& name) = 0;

    /// The process's loader; null when it has none.
    static InterfaceLoader* shared();

    /// Called once, by the composition root. The loader stays the caller's; null takes it out.
    static void install(InterfaceLoader* loader);
};

/// A new widget of one of our own classes, by the name that interface files call it; null for any
/// other name. The parent owns it.
QWidget* makeInterfaceWidget(const QString& className, QWidget* parent);

} // namespace dwellkey
