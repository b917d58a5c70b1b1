// The examples of the manual; each is made by a source file of its own, which docs/manual.md
// quotes.
#pragma once

class QWidget;

/// Each is a widget that the caller owns.
QWidget *ShowAPlan();
QWidget *VetoADrag();
QWidget *MillionRows();
QWidget *HideNights();
QWidget *PrintIt();
QWidget *OnAForm();
