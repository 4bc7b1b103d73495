#include "desktop/sound/player.h"

#include "core/log.h"
#include "core/text.h"
#include "desktop/theme.h"
#include "persist/program_folder.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include <array>
#include <filesystem>

namespace sm::desktop {

namespace {

constexpr int SOUNDS = 15;
constexpr float VOLUME = 0.7f;

}   // namespace

struct Sound_Player::Sounds {
    std::array<std::unique_ptr<QSoundEffect>, SOUNDS + 1> CUES;
    std::unique_ptr<QSoundEffect> OPENING;
};

void Sound_Player::Choose_Backend()
{
    // The other backend ends the program where its plugins are not installed.
    if (!qEnvironmentVariableIsSet("QT_MEDIA_BACKEND")) qputenv("QT_MEDIA_BACKEND", "ffmpeg");
}

Sound_Player::Sound_Player() = default;
Sound_Player::~Sound_Player() = default;

void Sound_Player::Load()
{
    sounds_.reset();
    // An output made where no device is ends the program in Qt 6.4.
    if (QMediaDevices::audioOutputs().isEmpty()) {
        Log("No sound device: the game is silent");
        return;
    }
    sounds_ = std::make_unique<Sounds>();
    const auto load = [](const std::string& name) -> std::unique_ptr<QSoundEffect> {
        const auto file = Home_Path(name);
        std::error_code fault;
        if (!std::filesystem::exists(file, fault)) return nullptr;
        auto effect = std::make_unique<QSoundEffect>(QMediaDevices::defaultAudioOutput());
        effect->setSource(QUrl::fromLocalFile(Path_To_Screen(file.string())));
        effect->setVolume(VOLUME);
        return effect;
    };
    for (int cue = 1; cue <= SOUNDS; ++cue) {
        const std::string number = std::to_string(cue);
        sounds_->CUES[static_cast<std::size_t>(cue)] =
            load(Cat("\\sounds\\", cue < 10 ? "0" : "", number, ".wav"));
    }
    sounds_->OPENING = load("\\smintro1.wav");
}

void Sound_Player::Play(int cue)
{
    if (sounds_ == nullptr || cue < 1 || cue > SOUNDS) return;
    if (QSoundEffect* effect = sounds_->CUES[static_cast<std::size_t>(cue)].get(); effect != nullptr)
        effect->play();
}

void Sound_Player::Play_Opening()
{
    if (sounds_ != nullptr && sounds_->OPENING != nullptr) sounds_->OPENING->play();
}

void Sound_Player::Stop()
{
    if (sounds_ == nullptr) return;
    if (sounds_->OPENING != nullptr) sounds_->OPENING->stop();
    for (const auto& effect : sounds_->CUES)
        if (effect != nullptr) effect->stop();
}

}   // namespace sm::desktop
