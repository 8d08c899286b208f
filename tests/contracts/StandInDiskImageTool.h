// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DiskImageTool.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zamber {

/// A shell script in the place of the disk image tool, with a folder for its memory. It writes down how it was called
/// in `calls`; "info" prints the report, which is put together from one file an image, and "detach" removes the file
/// of the image that has the volume.
class StandInDiskImageTool {
public:
    StandInDiskImageTool() {
        write("hdiutil",
              QByteArray("#!/bin/sh\n"
                         "cd \"${0%/*}\" || exit 1\n"
                         "printf '%s\\n' \"$*\" >>calls\n"
                         "case $1 in\n"
                         "info) cat report 2>/dev/null || { cat head; cat image-* 2>/dev/null; cat tail; } ;;\n"
                         "detach) for image in image-*; do\n"
                         "    grep -qF \"<string>$2</string>\" \"$image\" && rm \"$image\"; done ;;\n"
                         "esac\n"
                         "[ ! -f status ] || exit \"$(cat status)\"\n"));
        EXPECT_TRUE(QFile::setPermissions(program(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        write("head", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\""
                      " \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                      "<plist version=\"1.0\">\n<dict>\n\t<key>framework</key>\n\t<string>671.40.2</string>\n"
                      "\t<key>images</key>\n\t<array>\n");
        write("tail", "\t</array>\n\t<key>revision</key>\n\t<string>10.15</string>\n</dict>\n</plist>\n");
    }

    QString program() const { return m_folder.filePath(QStringLiteral("hdiutil")); }

    void attach(const AttachedImage& image) {
        QString entry = QStringLiteral("\t\t<dict>\n\t\t\t<key>blockcount</key>\n\t\t\t<integer>81920</integer>\n");
        if (image.imagePath) {
            entry += QStringLiteral("\t\t\t<key>image-path</key>\n\t\t\t<string>%1</string>\n")
                         .arg(image.imagePath->toHtmlEscaped());
        }
        entry += QStringLiteral("\t\t\t<key>system-entities</key>\n\t\t\t<array>\n"
                                "\t\t\t\t<dict><key>dev-entry</key><string>/dev/disk2</string></dict>\n");
        for (const QString& mountPoint : image.mountPoints) {
            entry += QStringLiteral("\t\t\t\t<dict><key>dev-entry</key><string>/dev/disk2s1</string>"
                                    "<key>mount-point</key><string>%1</string></dict>\n")
                         .arg(mountPoint.toHtmlEscaped());
        }
        entry += QStringLiteral("\t\t\t</array>\n\t\t\t<key>writeable</key>\n\t\t\t<false/>\n\t\t</dict>\n");
        write("image-" + QByteArray::number(++m_count), entry.toUtf8());
    }

    /// Prints these bytes and nothing else.
    void report(const QByteArray& bytes) { write("report", bytes); }
    void endWith(int status) { write("status", QByteArray::number(status)); }
    void takeAway() { EXPECT_TRUE(QFile::remove(program())); }

    QStringList calls() const {
        QFile file(m_folder.filePath(QStringLiteral("calls")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)
                                              : QStringList();
    }

private:
    void write(const QByteArray& name, const QByteArray& bytes) {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir m_folder;
    int m_count = 0;
};

} // namespace zamber
