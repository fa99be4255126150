// GNOME Shell 42 to 44: the shell's own modules are scripts.
const { Clutter, Cogl, Gio, GLib, Meta, Shell, St } = imports.gi;
const Main = imports.ui.main;
const { getInputSourceManager } = imports.ui.status.keyboard;
const { getKeyboardManager } = imports.misc.keyboardManager;

const setPixels = (content, ...pixels) => content.set_bytes(...pixels);

/* exported init */
function init(extension) {
    let session = null;
    return {
        enable() {
            session = new Session(extension.metadata.service);
        },
        disable() {
            session.end();
            session = null;
        },
    };
}
