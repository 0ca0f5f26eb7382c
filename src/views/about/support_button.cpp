// SPDX-License-Identifier: MIT
#include "views/about/support_button.h"

#include <optional>

namespace dwellkey {
namespace {

constexpr const char* helpPage = "help/index";

} // namespace

SupportButton::SupportButton(Platform& platform, QWidget* parent)
    : QPushButton(parent), platform_(platform) {
    setText(tr("Support..."));
    connect(this, &QPushButton::clicked, this, &SupportButton::openHelpPage);
}

void SupportButton::openHelpPage() {
    //: The file name of the help page in your language, without ".html".
    const std::string translated = tr("index").toStdString();
    auto page = platform_.bundleReader.pathForResource("help/" + translated, "html");
    if (!page) {
        page = platform_.bundleReader.pathForResource(helpPage, "html");
    }
    if (page && platform_.workspace.openUrl(Url::fromPath(*page).absoluteString())) {
        return;
    }
    const QString reason =
        page ? tr("No application opens web pages. The page is in the file %1.")
                   .arg(QString::fromStdString(*page))
             : tr("The page is missing. Installing Dwellkey anew brings it back.");
    platform_.alerts.runModal({tr("Could not open the help page").toStdString(),
                               reason.toStdString(),
                               AlertStyle::warning,
                               {tr("OK").toStdString()}});
}

} // namespace dwellkey
