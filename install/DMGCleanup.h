// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber {
class Alert;
class AppBundle;
class Application;
class BundleFiles;
class DiskImageTool;
class Scheduler;
class Workspace;
} // namespace zamber

namespace zamber::install {

/// Started from its disk image, the program offers to move in: to copy itself among the applications, to start again
/// from there, and to eject the image and throw it away. Once a launch, and with no state of its own.
class DMGCleanup final {
public:
    /// The ports that it uses. All of them must outlive the launch.
    struct Ports {
        AppBundle& bundle;
        Alert& alert;
        BundleFiles& files;
        DiskImageTool& images;
        Workspace& workspace;
        Application& application;
        Scheduler& scheduler;
    };

    DMGCleanup() = delete;

    static bool isRunningFromDMG(const AppBundle& bundle);

    /// In the system's or in a user's folder of applications.
    static bool isInstalledInApplications(const AppBundle& bundle);

    /// Does nothing when the program is not on a disk image; else asks a second later.
    static void checkAndPromptMove(const Ports& ports);
};

} // namespace zamber::install
