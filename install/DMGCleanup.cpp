// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "install/DMGCleanup.h"

#include "platform/Alert.h"
#include "platform/AppBundle.h"
#include "platform/Application.h"
#include "platform/BundleFiles.h"
#include "platform/DiskImageTool.h"
#include "platform/Log.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <chrono>
#include <string>

namespace zamber::install {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Ports = DMGCleanup::Ports;

constexpr std::chrono::milliseconds MOVE_PROMPT_DELAY = 1000ms;
constexpr std::chrono::milliseconds EJECT_PROMPT_DELAY = 500ms;
constexpr std::chrono::milliseconds TRASH_DELAY = 1000ms; // the volume's file is in use until it is gone

void ejectVolume(const Ports& ports, const QString& volumePath) {
    ports.images.detach(volumePath);
    logLine("⏏️ Ejected: " + volumePath.toStdString());
}

/// The file behind the first volume that is mounted there and whose file is known.
std::optional<QString> imageBehind(const QList<AttachedImage>& images, const QString& volumePath) {
    for (const AttachedImage& image : images) {
        if (image.imagePath && image.mountPoints.contains(volumePath)) {
            return image.imagePath;
        }
    }
    return std::nullopt;
}

void moveImageToTrash(const Ports& ports, const QString& imagePath) {
    if (const auto outcome = ports.workspace.moveToTrash(imagePath); !outcome) {
        logLine("⚠️ Couldn't trash DMG: " + outcome.error().toStdString());
    } else {
        logLine("🗑️ DMG moved to trash: " + imagePath.toStdString());
    }
}

void ejectAndTrashDMG(const Ports& ports, const QString& volumePath) {
    const auto images = ports.images.attachedImages();
    if (!images) {
        logLine("⚠️ hdiutil info failed: " + images.error().toStdString());
    }
    const std::optional<QString> imagePath = images ? imageBehind(*images, volumePath) : std::nullopt;
    ejectVolume(ports, volumePath);
    if (imagePath) {
        ports.scheduler.after(TRASH_DELAY, [ports, path = *imagePath] { moveImageToTrash(ports, path); });
    }
}

void askWhatToDoWithVolume(const Ports& ports, const QString& volumePath) {
    const int answer = ports.alert.run({
        .style = AlertStyle::Informational,
        .message = u"Eject installer disk?"_s,
        .informativeText = u"Zamber has been installed. Would you like to eject the installer disk image and move it "
                           u"to Trash?"_s,
        .buttons = {u"Eject & Trash"_s, u"Just Eject"_s, u"Leave It"_s},
    });
    if (answer == 0) {
        ejectAndTrashDMG(ports, volumePath);
    } else if (answer == 1) {
        ejectVolume(ports, volumePath);
    }
}

void promptEjectDMG(const Ports& ports) {
    const QStringList components = ports.bundle.path().split(u'/', Qt::SkipEmptyParts);
    if (components.size() < 2 || components[0] != u"Volumes"_s) {
        return;
    }
    ports.scheduler.after(EJECT_PROMPT_DELAY, [ports, volumePath = u"/Volumes/"_s + components[1]] {
        askWhatToDoWithVolume(ports, volumePath);
    });
}

void tellThatItDidNotMove(const Ports& ports, const QString& error) {
    ports.alert.run({
        .style = AlertStyle::Warning,
        .message = u"Couldn't move Zamber"_s,
        .informativeText = u"Try dragging Zamber to Applications manually.\n\nError: "_s + error,
    });
}

void moveToApplications(const Ports& ports) {
    const QString source = ports.bundle.path();
    const QString destination = u"/Applications/"_s + source.split(u'/', Qt::SkipEmptyParts).last();
    if (ports.files.exists(destination)) {
        if (const auto removed = ports.files.remove(destination); !removed) {
            tellThatItDidNotMove(ports, removed.error());
            return;
        }
    }
    if (const auto copied = ports.files.copy(source, destination); !copied) {
        tellThatItDidNotMove(ports, copied.error());
        return;
    }
    promptEjectDMG(ports);
    // The prompt to eject comes while the new instance starts. Once that has started this one ends, and the prompt with
    // it, answered or not.
    ports.workspace.openNewInstance(destination, [ports](const std::optional<QString>& error) {
        if (error) {
            logLine("❌ Relaunch error: " + error->toStdString());
        } else {
            ports.scheduler.soon([ports] { ports.application.terminate(); });
        }
    });
}

} // namespace

bool DMGCleanup::isRunningFromDMG(const AppBundle& bundle) {
    return bundle.path().startsWith(u"/Volumes/");
}

bool DMGCleanup::isInstalledInApplications(const AppBundle& bundle) {
    return bundle.path().contains(u"/Applications/"); // at the beginning, too
}

void DMGCleanup::checkAndPromptMove(const Ports& ports) {
    if (!isRunningFromDMG(ports.bundle)) {
        return;
    }
    ports.scheduler.after(MOVE_PROMPT_DELAY, [ports] {
        const int answer = ports.alert.run({
            .style = AlertStyle::Informational,
            .message = u"Move Zamber to Applications?"_s,
            .informativeText = u"Zamber is running from a disk image. Move it to your Applications folder for the best "
                               u"experience."_s,
            .buttons = {u"Move to Applications"_s, u"Not Now"_s},
        });
        if (answer == 0) {
            moveToApplications(ports);
        }
    });
}

} // namespace zamber::install
