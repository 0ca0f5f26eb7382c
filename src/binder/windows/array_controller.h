// SPDX-License-Identifier: MIT
#pragma once

#include "platform/user_defaults.h"
#include "support/signal.h"

#include <QWidget>
#include <cstddef>
#include <string>
#include <vector>

namespace dwellkey {

/// A list of texts whose content is stored under a settings key, and the selection in it. Interface
/// files can hold only widgets; this one is never seen.
class ArrayController final : public QWidget {
    Q_OBJECT

public:
    explicit ArrayController(QWidget* parent);

    /// The store must outlive the controller. Before this, the list is empty and stays so.
    void bindContent(UserDefaults& userDefaults, const std::string& defaultsKey);

    /// What is stored now; a value of another type is an empty list.
    [[nodiscard]] std::vector<std::string> arrangedObjects() const;

    /// Appends it, also when the list has it already.
    void addObject(std::string object);
    /// Removes the selection.
    void remove();

    [[nodiscard]] const std::vector<std::size_t>& selectionIndexes() const { return selection_; }
    void setSelectionIndexes(std::vector<std::size_t> indexes);

    /// After the list changed, by whomever. The selection is empty then.
    Signal<> contentDidChange;
    Signal<> selectionDidChange;

private:
    UserDefaults* userDefaults_ = nullptr;
    std::string defaultsKey_;
    std::vector<std::size_t> selection_;
    Subscription storeChange_;
};

} // namespace dwellkey
