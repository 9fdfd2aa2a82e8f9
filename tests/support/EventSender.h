#pragma once

class QWidget;

// Hover events sent straight to a widget, as the window system would send
// them when the pointer enters or leaves it.
namespace EventSender {

void sendEnter(QWidget *widget);
void sendLeave(QWidget *widget);

} // namespace EventSender
