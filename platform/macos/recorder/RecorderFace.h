#pragma once

#import "platform/macos/AppKit.h"
#include "shortcuts/RecorderBehaviour.h"

namespace quorvane {

/// What is to be seen of a recorder: a text in the middle, and at the right end a cross that clears it.
class RecorderFace {
public:
    /// The cross is put into the view, and sends it the action.
    RecorderFace(NSView* _Nonnull view, SEL _Nonnull clear);

    /// Where it is in a view: at the top of it. A recorder is higher than its cell and reaches out of it
    /// below.
    static NSRect placeIn(NSRect bounds);

    /// Whether the text is another one now.
    bool show(const RecorderBehaviour& recorder, bool isRefused);

    /// After the view's size or the text has changed.
    void layOut(NSView* _Nonnull view);

    /// The text, shortened where it is too long.
    void draw(NSRect bounds) const;

    NSString* _Nonnull text() const { return text_; }

private:
    NSRect placeOfText(NSRect face) const;
    NSDictionary<NSAttributedStringKey, id>* _Nonnull attributes() const;

    NSButton* _Nonnull clearButton_;
    NSString* _Nonnull text_ = @"";
    bool isMarked_ = false; ///< What it shows has no effect.
    bool isHint_ = true;    ///< It is no combination, nor a part of one.
};

} // namespace quorvane
