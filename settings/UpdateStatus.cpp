// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/UpdateStatus.h"

#include "settings/SettingsTheme.h"
#include "ui/BorderedButton.h"
#include "ui/ProgressIndicator.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"
#include "update/UpdateManager.h"

#include <QHBoxLayout>

#include <algorithm>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {
constexpr int STATUS_SPACING = 6;
constexpr int STATUS_POINTS = 13;
} // namespace

UpdateStatus::UpdateStatus(const SettingsTheme& theme, update::UpdateManager& updates)
    : m_theme(theme)
    , m_updates(updates)
    , m_progress(new ui::ProgressIndicator(u"Checking for updates"_s, this))
    , m_text(new ui::TextLabel({}, ui::textFont(STATUS_POINTS), this))
    , m_download(new ui::BorderedButton(
          u"Download"_s, {.prominence = ui::ButtonStyle::Prominence::Prominent, .size = ui::ControlSize::Small}, this))
    , m_check(new ui::BorderedButton(u"Check"_s, {.size = ui::ControlSize::Small}, this)) {
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(STATUS_SPACING);
    line->addWidget(m_progress);
    line->addWidget(m_text);
    line->addWidget(m_download);
    line->addWidget(m_check);
    // The row around it keeps its height in every state.
    setFixedHeight(std::max({m_check->sizeHint().height(), m_download->sizeHint().height(),
                             m_progress->sizeHint().height(), m_text->sizeHint().height()}));
    connect(m_download, &ui::BorderedButton::clicked, this, [&updates] { updates.downloadUpdate(); });
    connect(m_check, &ui::BorderedButton::clicked, this, [&updates] { updates.checkForUpdates(); });
    connect(&updates, &update::UpdateManager::changed, this, &UpdateStatus::refresh);
    refresh();
    theme.apply(this, [this](const ui::Palette&) { color(); });
}

void UpdateStatus::refresh() {
    const bool isChecking = m_updates.isChecking();
    const bool isAvailable = !isChecking && m_updates.updateAvailable();
    m_text->setText(isAvailable ? u"v%1 available"_s.arg(m_updates.latestVersion()) : u"Up to date"_s);
    m_text->setFont(ui::textFont(STATUS_POINTS, isAvailable ? QFont::Medium : QFont::Normal));
    m_progress->setVisible(isChecking);
    m_text->setVisible(!isChecking);
    m_download->setVisible(isAvailable);
    m_check->setVisible(!isChecking && !isAvailable);
    color();
}

void UpdateStatus::color() const {
    const ui::Palette& palette = m_theme.palette();
    m_text->setColor(m_updates.updateAvailable() ? palette.blue : palette.green);
    m_progress->setColors(palette);
    m_download->setColors(palette);
    m_check->setColors(palette);
}

} // namespace zamber::settings
