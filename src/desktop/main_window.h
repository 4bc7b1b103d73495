#pragma once
#include "core/platform.h"
#include "desktop/actions.h"
#include "desktop/sound/player.h"
#include "ui/desk.h"

#include <QMainWindow>
#include <QSize>

#include <memory>
#include <optional>
#include <vector>

class QEventLoop;
class QStackedWidget;

namespace sm::desktop {

class Map_View;
class Overview;
class Header_Bar;
class Palette_Panel;
class Status_Panel;
class Message_Panel;
class Status_Line;
class Cover_Page;

/// The window: draws the tables and hands on what the player does. It is the engine's screen (Platform) and the
/// handlers' window (Window) while it lives, and writes no table.
class Main_Window : public QMainWindow, public Platform, public Window {
public:
    /// `size`: one of the accepted sizes, in logical pixels.
    explicit Main_Window(QSize size);
    ~Main_Window() override;

    Map_View& Map() { return *map_; }
    Sound_Player& Sounds() { return sounds_; }
    /// What follows once the window stands: sounds, opening sound.
    void Begin();
    /// Milliseconds that each frame of the window took, while recording.
    std::vector<double>* RECORD = nullptr;

    // Platform
    void Phase(std::string_view title) override;
    void Status(std::string_view text, Status_Colour colour) override;
    void Posted(int sitrep_row) override;
    void Box(std::string_view title, std::string_view text) override;
    bool Ask(std::string_view title, std::string_view text) override;
    std::string Ask_File(const File_Request& request) override;
    void Progress(int value, int maximum) override;
    void Delay(int milliseconds) override;
    void Sound(int cue) override;
    void Beep() override;
    void Drawn(const Drawing& drawing) override;
    void Unit_Changed(int unit) override;
    void Changed(Redraw what) override;
    void Phase_Done(std::string_view name) override;

    // Window
    void Desk_Changed() override;
    void Scroll_Map(int columns, int rows) override;
    void Show_Whole_Map() override;
    void Look_Back() override;
    void Zoom_Map(int steps) override;
    void Show_Forces() override;
    void Centre_Map(int x, int y) override;
    void Show_Lines(std::string_view title, const std::vector<std::string>& lines) override;
    void Show_Help(std::string_view file, std::string_view title) override;
    void Show_Keys() override;
    void Show_Victory() override;
    void Show_Plot_List() override;
    Unsaved Ask_To_Save(std::string_view title, std::string_view text) override;
    void Stop_Sounds() override { sounds_.Stop(); }
    int Choose_Unit(std::string_view title, const std::vector<int>& units) override;
    void Close() override;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct LOOKED_AT {
        double ZOOM, X, Y;
    };
    QWidget* Build_Game_Page();
    void Go_To_Message(int row);
    void Offer_Back();
    void Change_Seats();
    void Place_On_Map();
    void Order_Menu(QPoint screen);
    void Set_Title();
    void End_Waits();

    Actions actions_;
    Sound_Player sounds_;
    QStackedWidget* pages_;
    QStackedWidget* body_;
    Header_Bar* header_ = nullptr;
    Map_View* map_ = nullptr;
    Overview* overview_ = nullptr;
    Palette_Panel* palette_ = nullptr;
    Status_Panel* status_ = nullptr;
    Message_Panel* messages_ = nullptr;
    QWidget* strip_ = nullptr;
    Cover_Page* cover_ = nullptr;
    QPushButton* back_ = nullptr;   // on the map, after a jump
    Status_Line* line_ = nullptr;
    std::vector<LOOKED_AT> looked_at_;      // where the map was before each jump
    std::optional<LOOKED_AT> seen_by_[3];   // where each side had the map when it left the seat
    int covered_for_ = 0, served_ = 3;      // as this window last drew the seat
    std::vector<QEventLoop*> waits_;        // running Delay calls, innermost last
    int overlay_ = 0;                       // kind that is drawn
    bool messages_stale_ = false;
};

}   // namespace sm::desktop
