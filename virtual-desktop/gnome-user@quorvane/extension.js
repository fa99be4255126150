/* Does in GNOME Shell what a user does, for whoever asks: `Evaluate` answers with the value of an expression, as JSON. */
/* exported init, enable, disable */

const { Clutter, Gio, GLib, Shell } = imports.gi;
const Main = imports.ui.main;
const { getInputSourceManager } = imports.ui.status.keyboard;

const NAME = 'user.of.gnome';
const INTERFACE = `<node><interface name="user.of.gnome">
  <method name="Evaluate"><arg type="s" direction="in"/><arg type="s" direction="out"/></method>
</interface></node>`;

let keyboard = null;

/* What expressions are made of. */
const user = {
    names(window) {
        return window ? [window.get_title(), window.get_sandboxed_app_id() || window.get_wm_class()] : [];
    },
    find(name) {
        return global.get_window_actors().map(actor => actor.meta_window)
            .find(window => user.names(window).includes(name));
    },
    namesInFront() {
        const window = global.display.focus_window;
        // One of X has a surface, and gets keys, only some time after it is in front.
        const hasSurface = window && window.get_compositor_private().get_texture() !== null;
        return hasSurface && !Main.overview.visible ? user.names(window) : [];
    },
    activate(name) {
        const window = user.find(name);
        if (window)
            window.activate(global.get_current_time());
    },
    place(name) {
        const window = user.find(name);
        const area = window ? window.get_frame_rect() : { x: 0, y: 0, width: 0, height: 0 };
        return [area.x, area.y, area.width, area.height];
    },
    move(name, x, y, width, height) {
        const window = user.find(name);
        window.move_frame(true, x, y); // The next one would only resize windows of X.
        window.move_resize_frame(true, x, y, width, height);
    },
    send(key, isPressed) {
        keyboard.notify_key(GLib.get_monotonic_time(), key,
            isPressed ? Clutter.KeyState.PRESSED : Clutter.KeyState.RELEASED);
    },
    layout() {
        return getInputSourceManager().currentSource.index;
    },
    selectLayout(layout) {
        getInputSourceManager().inputSources[layout].activate(true);
    },
    setOverview(isOpen) {
        if (isOpen)
            Main.overview.show();
        else
            Main.overview.hide();
    },
    isOverviewOpen() {
        return Main.overview.visible;
    },
    saveScreenshot(path) {
        const stream = Gio.File.new_for_path(path).replace(null, false, Gio.FileCreateFlags.NONE, null);
        return new Promise((resolve, reject) => {
            const screenshot = new Shell.Screenshot();
            screenshot.screenshot(false, stream, (_object, result) => {
                try {
                    screenshot.screenshot_finish(result);
                    stream.close(null);
                    resolve(true);
                } catch (error) {
                    reject(error);
                }
            });
        });
    },
    displays() {
        return [GLib.getenv('DISPLAY') || '', GLib.getenv('XAUTHORITY') || ''];
    },
};

class Service {
    constructor() {
        const seat = Clutter.get_default_backend().get_default_seat();
        keyboard = seat.create_virtual_device(Clutter.InputDeviceType.KEYBOARD_DEVICE);
        this._object = Gio.DBusExportedObject.wrapJSObject(INTERFACE, this);
        this._object.export(Gio.DBus.session, '/user');
        this._name = Gio.bus_own_name(Gio.BusType.SESSION, NAME, Gio.BusNameOwnerFlags.NONE, null, null, null);
    }

    destroy() {
        Gio.bus_unown_name(this._name);
        this._object.unexport();
        keyboard = null;
    }

    async EvaluateAsync([expression], invocation) {
        try {
            const value = await new Function(...Object.keys(user), `return ${expression};`)(...Object.values(user));
            invocation.return_value(new GLib.Variant('(s)', [JSON.stringify([value])]));
        } catch (error) {
            invocation.return_dbus_error('user.of.gnome.Error', String(error));
        }
    }
}

let service = null;

function init() {}

function enable() {
    service = new Service();
}

function disable() {
    service.destroy();
    service = null;
}
