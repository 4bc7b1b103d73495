#pragma once
#include <memory>

namespace sm::desktop {

/// Plays the sounds of the program folder. On a machine without a sound device it is silent; that is no error.
class Sound_Player {
public:
    /// Before the application object: which media backend Qt takes.
    static void Choose_Backend();

    Sound_Player();
    ~Sound_Player();
    /// Reads sounds/01.wav to 15.wav and the opening sound of the program folder.
    void Load();
    void Play(int cue);   ///< 1..15; others are silent
    void Play_Opening();
    void Stop();

private:
    struct Sounds;
    std::unique_ptr<Sounds> sounds_;
};

}   // namespace sm::desktop
