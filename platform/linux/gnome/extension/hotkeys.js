
/** The program's hot keys: accelerators of the shell, which refuses those that somebody has. */
class HotKeys {
    constructor(agent) {
        this._actions = new Map(); // by number
        this._connections = new Connections();
        this._connections.add(global.display, 'accelerator-activated', (display, action) => {
            for (const [number, own] of this._actions) {
                if (own === action)
                    agent.tell('HotKeyPressed', '(i)', [number]);
            }
        });
    }

    end() {
        this.unbindAll();
        this._connections.end();
    }

    bind(number, accelerator) {
        this.unbind(number);
        const action = global.display.grab_accelerator(accelerator, Meta.KeyBindingFlags.IGNORE_AUTOREPEAT);
        if (action === Meta.KeyBindingAction.NONE)
            return false;
        Main.wm.allowKeybinding(Meta.external_binding_name_for_action(action), Shell.ActionMode.ALL);
        this._actions.set(number, action);
        return true;
    }

    unbind(number) {
        const action = this._actions.get(number);
        if (action === undefined)
            return;
        this._actions.delete(number);
        global.display.ungrab_accelerator(action);
        Main.wm.allowKeybinding(Meta.external_binding_name_for_action(action), Shell.ActionMode.NONE);
    }

    unbindAll() {
        [...this._actions.keys()].forEach(number => this.unbind(number));
    }
}
