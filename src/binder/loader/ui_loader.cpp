// SPDX-License-Identifier: MIT
#include "binder/loader/ui_loader.h"

#include <QBuffer>
#include <QUiLoader>
#include <QWidget>
#include <variant>

namespace dwellkey {
namespace {

/// Knows our own classes too.
class Reader final : public QUiLoader {
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        if (QWidget* own = makeInterfaceWidget(className, parent)) {
            own->setObjectName(name);
            return own;
        }
        return QUiLoader::createWidget(className, parent, name);
    }
};

} // namespace

std::unique_ptr<QWidget> UiLoader::load(const std::string& name) {
    const auto fail = [&](std::string_view cause) -> std::unique_ptr<QWidget> {
        errorLog_.error("The interface file " + name + ".ui could not be loaded.", cause);
        return nullptr;
    };
    const auto path = bundleReader_.pathForResource(name, "ui");
    if (!path) {
        return fail("it is not installed");
    }
    const auto text = bundleReader_.fileText(*path);
    if (const auto* error = std::get_if<ResourceError>(&text)) {
        return fail(error->description);
    }
    QBuffer buffer;
    buffer.setData(QByteArray::fromStdString(std::get<std::string>(text)));
    buffer.open(QIODevice::ReadOnly);
    Reader reader;
    std::unique_ptr<QWidget> root(reader.load(&buffer));
    if (root == nullptr) {
        return fail(reader.errorString().toStdString());
    }
    return root;
}

} // namespace dwellkey
