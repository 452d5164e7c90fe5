#include "platform/linux/ThemeSounds.h"

#include <QLibrary>

#include <canberra.h>

namespace kestrio {

/// The functions of the library, where it is installed.
class ThemeSounds::Player {
  public:
    ~Player() {
        if (context_) destroy_(context_);
    }

    void play(const char* event) {
        if (!isTried_) load();
        if (context_)
            play_(context_, 0, CA_PROP_EVENT_ID, event, CA_PROP_CANBERRA_CACHE_CONTROL, "volatile",
                  nullptr);
    }

  private:
    void load() {
        isTried_ = true;
        constexpr int version = 0;
        QLibrary library(QStringLiteral("canberra"), version);
        const auto create =
            reinterpret_cast<decltype(&ca_context_create)>(library.resolve("ca_context_create"));
        const auto describe = reinterpret_cast<decltype(&ca_context_change_props)>(
            library.resolve("ca_context_change_props"));
        destroy_ =
            reinterpret_cast<decltype(&ca_context_destroy)>(library.resolve("ca_context_destroy"));
        play_ = reinterpret_cast<decltype(&ca_context_play)>(library.resolve("ca_context_play"));
        if (!create || !describe || !destroy_ || !play_) return;
        if (create(&context_) != CA_SUCCESS) {
            context_ = nullptr;
            return;
        }
        describe(context_, CA_PROP_APPLICATION_NAME, "Kestrio", CA_PROP_APPLICATION_ID,
                 "com.kestrio.Kestrio", nullptr);
    }

    bool isTried_ = false;
    ca_context* context_ = nullptr;
    decltype(&ca_context_destroy) destroy_ = nullptr;
    decltype(&ca_context_play) play_ = nullptr;
};

ThemeSounds::ThemeSounds() : player_(std::make_unique<Player>()) {}
ThemeSounds::~ThemeSounds() = default;

void ThemeSounds::play(const QString& name) {
    // Event names that every sound theme has.
    const char* event = name == u"Tink" ? "message" : name == u"Glass" ? "complete" : nullptr;
    if (event) queue_.async([this, event] { player_->play(event); });
}

}  // namespace kestrio
