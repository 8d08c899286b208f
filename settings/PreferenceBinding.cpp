// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/PreferenceBinding.h"

#include "ui/SegmentedPicker.h"
#include "ui/Switch.h"

#include <QSignalBlocker>

#include <utility>

namespace zamber::settings {

namespace {

/// Observes for as long as its parent lives.
class Observation final : public QObject {
public:
    Observation(QObject* parent, UserDefaults& defaults, const QString& key, UserDefaults::Observer observer)
        : QObject(parent)
        , m_defaults(defaults)
        , m_token(defaults.addObserver(key, std::move(observer))) {}

    ~Observation() override { m_defaults.removeObserver(m_token); }

    Observation(const Observation&) = delete;
    Observation& operator=(const Observation&) = delete;

private:
    UserDefaults& m_defaults;
    UserDefaults::ObserverToken m_token;
};

} // namespace

void follow(QObject& context, UserDefaults& defaults, QLatin1StringView key, std::function<void()> show) {
    show();
    new Observation(&context, defaults, key, std::move(show)); // the context's child
}

void bind(ui::Switch& control, UserDefaults& defaults, const preferences::PreferenceKey<bool>& key) {
    follow(control, defaults, key.name, [&control, &defaults, key] {
        const QSignalBlocker silence(control);
        control.setChecked(read(defaults, key));
    });
    QObject::connect(&control, &ui::Switch::toggled, &control,
                     [&defaults, key](bool isOn) { write(defaults, key, isOn); });
}

void bind(ui::SegmentedPicker& control, UserDefaults& defaults, const preferences::PreferenceKey<QStringView>& key) {
    follow(control, defaults, key.name, [&control, &defaults, key] { control.setValue(read(defaults, key)); });
    QObject::connect(&control, &ui::SegmentedPicker::chosen, &control,
                     [&defaults, key](const QString& value) { write(defaults, key, value); });
}

void bind(ui::SegmentedPicker& control, UserDefaults& defaults, const preferences::PreferenceKey<int>& key) {
    follow(control, defaults, key.name,
           [&control, &defaults, key] { control.setValue(QString::number(read(defaults, key))); });
    QObject::connect(&control, &ui::SegmentedPicker::chosen, &control,
                     [&defaults, key](const QString& value) { write(defaults, key, value.toInt()); });
}

} // namespace zamber::settings
