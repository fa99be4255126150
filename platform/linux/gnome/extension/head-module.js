// GNOME Shell 45 and later: the shell's own modules are ES modules.
import Clutter from 'gi://Clutter';
import Cogl from 'gi://Cogl';
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';
import St from 'gi://St';
import * as Config from 'resource:///org/gnome/shell/misc/config.js';
import { Extension } from 'resource:///org/gnome/shell/extensions/extension.js';
import { getKeyboardManager } from 'resource:///org/gnome/shell/misc/keyboardManager.js';
import * as Main from 'resource:///org/gnome/shell/ui/main.js';
import { getInputSourceManager } from 'resource:///org/gnome/shell/ui/status/keyboard.js';

// Since 48, pixels belong to a context.
const setPixels = parseInt(Config.PACKAGE_VERSION) < 48
    ? (content, ...pixels) => content.set_bytes(...pixels)
    : (content, ...pixels) => content.set_bytes(
        global.stage.context.get_backend().get_cogl_context(), ...pixels);

export default class extends Extension {
    enable() {
        this._session = new Session(this.metadata.service);
    }

    disable() {
        this._session.end();
        this._session = null;
    }
}
