#pragma once
// The lines of OM_10_config.txt: one entry per setting, in the order the
// writer puts them, each knowing how it is written and which tags read it.

#include "workstation/settings.h"

#include <QString>
#include <QStringList>
#include <vector>

class Workstation;
namespace forms {
class Control;
}

namespace config {

enum class Form {
    Box,    // a check box written as its ON or its OFF tag
    Text,   // tag, blank, the text of a control
    Value,  // tag, blank, a value worked out by read/write functions
    Scale,  // tag, blank, "low to high"; the box keeps the text
    Colour, // tag, blank, a curve colour as a number
    Choice, // one of several tags, the chosen one alone is written
};

using Access = forms::Control& (*)(Workstation&);

struct Entry {
    Form form = Form::Value;
    QString tag;    // Box: the ON tag; Choice: unused
    QString offTag; // Box: the OFF tag
    QString pad;    // Box: blanks written behind the tag
    // Box: whether the OFF tag is read. Boxes of the older group are only
    // ever set by the file; the panel's default is what clears them.
    bool readsOff = true;
    Access control = nullptr; // Box, Text, Scale
    // Value: what a read line does (nullptr: written only). Box: what else
    // a set box drives.
    void (*read)(Workstation&, const QString& value) = nullptr;
    QString (*write)(Workstation&) = nullptr; // Value: the value written
    // Scale: sets the scale from low and high and makes its repairs.
    void (*scale)(Settings&, double low, double high) = nullptr;
    long Settings::*colour = nullptr;
    QStringList choices; // Choice: the tags
    void (*choose)(Workstation&, int) = nullptr;
    int (*chosen)(Workstation&) = nullptr; // Choice: -1 writes no line
};

const std::vector<Entry>& Entries();

// Every tag the reader looks for: the entry and, for a box, 1 for its ON
// tag and 0 for its OFF tag; for a choice the element.
struct ReadTag {
    QString tag;
    const Entry* entry;
    int which;
};
const std::vector<ReadTag>& ReadTags();

} // namespace config
