#pragma once

class QWidget;

namespace sm::desktop {

/// The dialog "Victory Status": verdict, losses and points, bars of power and of losses by cause, the chart of strengths.
/// It stays open beside the work; another call brings it up to date.
void Show_Victory_Sheet(QWidget* parent);

}   // namespace sm::desktop
