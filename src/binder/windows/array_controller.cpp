// SPDX-License-Identifier: MIT
#include "binder/windows/array_controller.h"

#include "platform/user_default.h"

#include <algorithm>
#include <utility>

namespace dwellkey {

ArrayController::ArrayController(QWidget* parent) : QWidget(parent) {
    hide();
}

void ArrayController::bindContent(UserDefaults& userDefaults, const std::string& defaultsKey) {
    userDefaults_ = &userDefaults;
    defaultsKey_ = defaultsKey;
    storeChange_ = userDefaults.observe(defaultsKey, [this](DefaultsChange) {
        setSelectionIndexes({});
        contentDidChange.emit();
    });
    contentDidChange.emit();
}

std::vector<std::string> ArrayController::arrangedObjects() const {
    if (userDefaults_ == nullptr) {
        return {};
    }
    return UserDefault<std::vector<std::string>>(*userDefaults_, defaultsKey_, {}).get();
}

void ArrayController::addObject(std::string object) {
    if (userDefaults_ != nullptr) {
        auto objects = arrangedObjects();
        objects.push_back(std::move(object));
        userDefaults_->set(defaultsKey_, std::move(objects));
    }
}

void ArrayController::remove() {
    if (userDefaults_ == nullptr || selection_.empty()) {
        return;
    }
    const auto objects = arrangedObjects();
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        if (std::ranges::find(selection_, i) == selection_.end()) {
            kept.push_back(objects[i]);
        }
    }
    userDefaults_->set(defaultsKey_, std::move(kept));
}

void ArrayController::setSelectionIndexes(std::vector<std::size_t> indexes) {
    if (selection_ != indexes) {
        selection_ = std::move(indexes);
        selectionDidChange.emit();
    }
}

} // namespace dwellkey
