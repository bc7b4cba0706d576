#ifndef DXSAMPLE_H
#define DXSAMPLE_H

//! One point of a drag along the slider's ruler: how far it had moved and when.
struct DxSample
{
    //! Pixels from the press; positive to the right.
    int offset = 0;
    //! Milliseconds since the press.
    int time = 0;
};

#endif // DXSAMPLE_H
