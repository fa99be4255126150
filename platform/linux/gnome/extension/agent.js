
/** The types of what the program's calls are answered with; null: with nothing. */
const ANSWERS = {
    Start: '(u)', Select: '(b)', SetLatin: null, SetRules: null, BindHotKey: '(b)', UnbindHotKey: null,
    ShowIndicator: null, MoveIndicator: null, HideIndicator: null, BringToUser: null,
};

const CALLS = service => `<node><interface name="${service}.Shell">
  <method name="Start"><arg type="u" direction="out" name="version"/></method>
  <method name="Select">
    <arg type="s" direction="in" name="id"/>
    <arg type="u" direction="in" name="activations"/>
    <arg type="b" direction="out" name="isThere"/>
  </method>
  <method name="SetLatin"><arg type="s" direction="in" name="id"/></method>
  <method name="SetRules">
    <arg type="a(sss)" direction="in" name="rules"/>
    <arg type="s" direction="in" name="sourceOfOthers"/>
  </method>
  <method name="BindHotKey">
    <arg type="u" direction="in" name="number"/>
    <arg type="s" direction="in" name="accelerator"/>
    <arg type="b" direction="out" name="isGranted"/>
  </method>
  <method name="UnbindHotKey"><arg type="u" direction="in" name="number"/></method>
  <method name="ShowIndicator">
    <arg type="ay" direction="in" name="pixels"/>
    <arg type="i" direction="in" name="width"/>
    <arg type="i" direction="in" name="height"/>
    <arg type="i" direction="in" name="x"/>
    <arg type="i" direction="in" name="y"/>
    <arg type="d" direction="in" name="scale"/>
    <arg type="b" direction="in" name="mayBeDragged"/>
  </method>
  <method name="MoveIndicator">
    <arg type="i" direction="in" name="x"/>
    <arg type="i" direction="in" name="y"/>
  </method>
  <method name="HideIndicator"/>
  <method name="BringToUser"><arg type="i" direction="in" name="pid"/></method>
</interface></node>`;

/**
 * The program, while it owns its name on the bus. Nobody else may call, and from when on it is told things is
 * for it to say. `calls` has a function for each method above, `left` is called when the program has gone.
 */
class Agent {
    constructor(service, calls, left) {
        this._service = service;
        this._path = `/${service.replaceAll('.', '/').replaceAll('-', '_')}`;
        this._owner = null;
        this._left = left;
        this._object = Gio.DBusExportedObject.wrapJSObject(CALLS(service), this._guarded(calls));
        this._object.export(Gio.DBus.session, `${this._path}/Shell`);
        this._watch = Gio.bus_watch_name(Gio.BusType.SESSION, service, Gio.BusNameWatcherFlags.NONE,
            (connection, name, owner) => this._came(owner), () => this._went());
    }

    end() {
        this.tell('Ended');
        Gio.bus_unwatch_name(this._watch);
        this._object.unexport();
        this._went();
    }

    /** Sends a message of that type to the program; there is no answer. */
    tell(method, type = null, values = []) {
        if (!this._owner)
            return;
        const message = Gio.DBusMessage.new_method_call(
            this._owner, `${this._path}/Session`, `${this._service}.Session`, method);
        message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED | Gio.DBusMessageFlags.NO_AUTO_START);
        if (type)
            message.set_body(new GLib.Variant(type, values));
        try {
            Gio.DBus.session.send_message(message, Gio.DBusSendMessageFlags.NONE);
        } catch (error) {
            console.warn(`Quorvane: ${error.message}`);
        }
    }

    _came(owner) {
        this._went();
        this._owner = owner;
        this.tell('Ready');
    }

    _went() {
        if (this._owner)
            this._left();
        this._owner = null;
    }

    _guarded(calls) {
        const guarded = {};
        for (const [method, answer] of Object.entries(ANSWERS)) {
            guarded[`${method}Async`] = (values, invocation) => {
                if (invocation.get_sender() !== this._owner) {
                    invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied',
                        `only ${this._service} is heard`);
                    return;
                }
                try {
                    const result = calls[method](...values, invocation.get_parameters());
                    invocation.return_value(answer && new GLib.Variant(answer, [result]));
                } catch (error) {
                    console.warn(`Quorvane: ${method}: ${error.message}`);
                    invocation.return_dbus_error('org.freedesktop.DBus.Error.Failed', error.message);
                }
            };
        }
        return guarded;
    }
}
