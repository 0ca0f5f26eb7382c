// SPDX-License-Identifier: MIT
#include "platform/linux/single_instance.h"

#include "platform/linux/hung_process.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace dwellkey {
namespace {

using SteadyClock = std::chrono::steady_clock;

// Between two looks at a process that has the lock and is about to listen, or about to end.
constexpr std::chrono::milliseconds lookAgain{5};

bool isOursAlone(const std::string& folder) {
    struct stat facts {};
    return ::lstat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode)
           && facts.st_uid == ::getuid() && (facts.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::string runtimeFolder(const Environment& environment) {
    const std::string named = environment("XDG_RUNTIME_DIR").value_or("");
    const std::string user = std::to_string(::getuid());
    for (const std::string& folder : {named, "/run/user/" + user}) {
        if (folder.starts_with('/') && isOursAlone(folder)) {
            return folder;
        }
    }
    return "/tmp/dwellkey-" + user; // made when missing, and used only when nobody else made it
}

/// ":0", ":0.1" and "unix:0" are one server.
std::string displayName(std::string name) {
    const std::size_t colon = name.rfind(':');
    if (colon != std::string::npos) {
        name.resize(std::min(name.find('.', colon), name.size()));
        name.erase(0, name.starts_with("unix:") ? colon : 0);
    }
    std::ranges::replace(name, '/', '_');
    return name;
}

/// What has become of a process that holds the lock.
class Holder {
public:
    explicit Holder(SingleInstance::Patience patience) : patience_(patience) {}

    /// Another holder than before gets its own time.
    void consider(pid_t process) {
        if (process != process_) {
            process_ = process;
            deadline_ = SteadyClock::now() + patience_.answer;
        }
    }
    [[nodiscard]] bool hangs() const { return SteadyClock::now() >= deadline_; }
    [[nodiscard]] SteadyClock::time_point deadline() const { return deadline_; }
    [[nodiscard]] std::optional<std::string> end() const {
        return endHungProcess(process_, patience_.grace);
    }

private:
    SingleInstance::Patience patience_;
    pid_t process_ = -1;
    SteadyClock::time_point deadline_;
};

} // namespace

SingleInstance::Place SingleInstance::Place::from(const Environment& environment) {
    return {runtimeFolder(environment), displayName(environment("DISPLAY").value_or(""))};
}

SingleInstance::Claim SingleInstance::claim(const Place& place, const Launch& launch,
                                            Patience patience) {
    if (const auto error = makeFolders(place.folder)) {
        return Unavailable{place.folder + ": " + error->cause};
    }
    if (!isOursAlone(place.folder)) {
        return Unavailable{place.folder + " belongs to others, too"};
    }
    const std::string path = place.folder + "/dwellkey-" + place.display;
    InstanceLock lock(path + ".lock");
    Holder holder(patience);
    for (bool tookOver = false;;) {
        const auto attempt = lock.tryTake();
        if (const auto* error = std::get_if<FileError>(&attempt)) {
            return Unavailable{path + ".lock: " + error->cause};
        }
        if (std::holds_alternative<InstanceLock::Taken>(attempt)) {
            auto socket = LaunchSocket::open(path + ".socket");
            if (const auto* error = std::get_if<FileError>(&socket)) {
                return Unavailable{path + ".socket: " + error->cause}; // who cannot answer hangs
            }
            return std::unique_ptr<SingleInstance>(
                new SingleInstance(std::move(lock), std::get<0>(std::move(socket)), tookOver));
        }
        holder.consider(std::get<InstanceLock::HeldBy>(attempt).process);
        if (tellOfLaunch(path + ".socket", launch, holder.deadline())) {
            return Answered{};
        }
        if (!holder.hangs()) {
            std::this_thread::sleep_for(lookAgain);
        } else if (auto cause = holder.end()) {
            return Blocked{std::move(*cause)};
        } else {
            tookOver = true;
        }
    }
}

} // namespace dwellkey
