// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/CanberraSound.h"

#include <QDir>
#include <QFile>

#include <canberra.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <utility>

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

namespace {

struct Destroy {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};

using Context = std::unique_ptr<ca_context, Destroy>;

/// A file that is in memory only and has a path within this process: libcanberra reads nothing but files.
class MemoryFile final {
public:
    explicit MemoryFile(const QByteArray& content)
        : m_descriptor(memfd_create("sound", MFD_CLOEXEC)) {
        QFile file;
        m_isWhole = m_descriptor >= 0 && file.open(m_descriptor, QIODevice::WriteOnly) &&
                    file.write(content) == content.size() && file.flush();
    }

    ~MemoryFile() {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }

    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    QByteArray path() const { return m_isWhole ? "/proc/self/fd/" + QByteArray::number(m_descriptor) : QByteArray(); }

private:
    int m_descriptor;
    bool m_isWhole;
};

/// Without a card the ALSA library has nothing to play on and says so, in many lines, on standard error.
bool hasSoundCard() {
    return !QDir(u"/dev/snd"_s).entryList({u"pcm*"_s}, QDir::System).isEmpty();
}

Context createContext(const char* driver) {
    ca_context* raw = nullptr;
    if (ca_context_create(&raw) != CA_SUCCESS) {
        return nullptr;
    }
    Context context(raw);
    ca_context_change_props(raw, CA_PROP_APPLICATION_NAME, "Zamber", CA_PROP_APPLICATION_ID, "app.zamber.Zamber",
                            nullptr);
    const bool isOpen = ca_context_set_driver(raw, driver) == CA_SUCCESS && ca_context_open(raw) == CA_SUCCESS;
    return isOpen ? std::move(context) : nullptr;
}

} // namespace

/// Lives until the last sound has been handed over, on whichever thread that happens.
class CanberraSound::Player final {
public:
    /// Claims the player for one sound; false while it is busy with another. The sample is read on this thread: Qt's
    /// resources are gone when the program ends, which the thread that plays may see.
    bool begin(const QString& name) {
        if (m_isBusy.exchange(true)) {
            return false;
        }
        m_file = sampleFile(name);
        m_name = name.toUtf8();
        return true;
    }

    void play() {
        if (!m_file.isEmpty() && !playFile()) {
            // After a sound server was restarted, only a new context reaches it.
            m_context.reset();
            playFile();
        }
        m_isBusy = false;
    }

private:
    QByteArray sampleFile(const QString& name) {
        if (m_sampleName != name) {
            QFile sample(u":/sounds/%1.wav"_s.arg(name.toLower()));
            m_sample = sample.open(QIODevice::ReadOnly) ? std::make_unique<MemoryFile>(sample.readAll()) : nullptr;
            m_sampleName = name;
        }
        return m_sample ? m_sample->path() : QByteArray();
    }

    bool playFile() {
        if (!m_context) {
            m_context = createContext("pulse");
        }
        if (!m_context && hasSoundCard()) {
            m_context = createContext("alsa");
        }
        return m_context && ca_context_play(m_context.get(), 0, CA_PROP_MEDIA_FILENAME, m_file.constData(),
                                            CA_PROP_EVENT_ID, m_name.constData(), CA_PROP_MEDIA_ROLE, "event",
                                            CA_PROP_CANBERRA_CACHE_CONTROL, "permanent", nullptr) == CA_SUCCESS;
    }

    std::atomic<bool> m_isBusy = false;
    // The members below belong to the sound that has claimed the player.
    Context m_context;
    QString m_sampleName;
    std::unique_ptr<MemoryFile> m_sample;
    QByteArray m_file; // the sample's path, empty when there is none
    QByteArray m_name; // of the sound
};

CanberraSound::CanberraSound()
    : m_player(std::make_shared<Player>()) {}

CanberraSound::~CanberraSound() = default;

void CanberraSound::play(const QString& name) {
    if (m_player->begin(name)) {
        std::thread([player = m_player] { player->play(); }).detach();
    }
}

} // namespace zamber::freedesktop
