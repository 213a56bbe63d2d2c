#pragma once
// The joystick in the mode "Direkt": pushed forward or back it changes the
// speed, to the side the course. Positions run from 0 to 65535 with the rest
// at 32768; within 30 percent of the rest nothing happens.

namespace ortelix {

struct JoyStickWirkung {
    bool speedChanged = false, courseChanged = false;
    double speed = 0, course = 0;
};

// The speed and course boxes' values after one reading of the stick: a full
// push adds or takes 3 (the whole part of the value plus a thirtieth of the
// percent). The speed stops at 0, as with the arrow keys.
JoyStickWirkung JoyStickSchritt(int x, int y, double speed, double course);

}  // namespace ortelix
