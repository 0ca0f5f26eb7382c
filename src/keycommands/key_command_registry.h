// SPDX-License-Identifier: MIT
// All key commands of the process and the one handler of their events. Main thread only. std only.
#pragma once

#include "keycommands/key_command_proxy.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace dwellkey {

class KeyCommandRegistry {
public:
    /// The four characters 'HOTC': the service keeps our ids apart from other programs' by it.
    static constexpr std::uint32_t signature = 0x484f5443;

    /// The process's registry on the process's platform, made on first use and never destroyed.
    static KeyCommandRegistry& shared();

    /// The platform must outlive the registry.
    explicit KeyCommandRegistry(Platform& platform);
    KeyCommandRegistry(const KeyCommandRegistry&) = delete;
    KeyCommandRegistry& operator=(const KeyCommandRegistry&) = delete;
    ~KeyCommandRegistry() = default;

    /// Null when no operation has used the name yet.
    [[nodiscard]] KeyCommandProxy* find(const KeyCommand::Name& name) const;

    /// The proxy of the name, made now if need be; it stays where it is, for good.
    [[nodiscard]] KeyCommandProxy& proxy(const KeyCommand::Name& name);

    /// The registered command of this combination; null when there is none.
    [[nodiscard]] KeyCommandProxy* registered(Key key, const Modifiers& modifiers) const;

    /// Installs the handler unless it is installed.
    OSStatus installHandler();

    [[nodiscard]] Platform& platform() const { return platform_; }

private:
    [[nodiscard]] OSStatus handle(const HotKeyEvent* event) const;
    [[nodiscard]] KeyCommandProxy* find(EventHotKeyID identifier) const;

    Platform& platform_;
    std::vector<std::unique_ptr<KeyCommandProxy>> proxies_;
    std::uint32_t nextId_ = 0;
    /// Set once the handler is installed; the handler is deaf when it is gone.
    std::shared_ptr<const bool> handlerLife_;
};

} // namespace dwellkey
