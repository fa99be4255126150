
const DESKTOP_PARTS = [Meta.WindowType.DESKTOP, Meta.WindowType.DOCK];

/** What distinguishes the application of a window: its desktop file or, without one, its class. */
function keyOf(window) {
    return desktopFileOf(window) || window.get_wm_class() || '';
}

function desktopFileOf(window) {
    const id = Shell.WindowTracker.get_default().get_window_app(window)?.get_id() ?? '';
    // A program without a desktop file is given a number.
    return id.endsWith('.desktop') ? id.slice(0, -'.desktop'.length) : '';
}

/** Tells the program of the windows that a user can type into, and which of them has the keys. */
class Windows {
    constructor(agent, rules) {
        this._agent = agent;
        this._rules = rules;
        this._told = new Map(); // what was last told of each
        this._watched = new Map();
        this._awaited = 0;
        this._connections = new Connections();
        this._connections.add(global.display, 'window-created', (display, window) => this._opened(window));
        this._connections.add(global.display, 'notify::focus-window', () => this._focusMoved());
        this._connections.add(Shell.WindowTracker.get_default(), 'tracked-windows-changed',
            () => [...this._watched.keys()].forEach(window => this._describe(window)));
        global.get_window_actors().forEach(actor => this._opened(actor.meta_window));
    }

    end() {
        this._connections.end();
        this._watched.forEach(connections => connections.end());
        this._watched.clear();
    }

    tellAll() {
        this._told.clear();
        this._watched.forEach((connections, window) => this._describe(window));
        this._focusMoved();
    }

    /** Activates a window of the process; if it has none yet, the first one it opens. */
    bringToUser(pid) {
        const windows = [...this._watched.keys()].filter(window => window.get_pid() === pid);
        windows.sort((one, other) => other.get_user_time() - one.get_user_time());
        this._awaited = windows.length ? 0 : pid;
        if (windows.length)
            Main.activateWindow(windows[0]);
    }

    forgetAwaited() {
        this._awaited = 0;
    }

    _opened(window) {
        if (window.is_override_redirect() || DESKTOP_PARTS.includes(window.get_window_type()))
            return;
        const connections = new Connections();
        this._watched.set(window, connections);
        for (const signal of ['notify::wm-class', 'notify::gtk-application-id', 'notify::title',
            'notify::minimized', 'position-changed', 'size-changed'])
            connections.add(window, signal, () => this._describe(window));
        connections.add(window, 'shown', () => this._shown(window));
        connections.add(window, 'unmanaged', () => this._closed(window));
        this._describe(window);
    }

    _shown(window) {
        if (window.get_pid() !== this._awaited)
            return;
        this._awaited = 0;
        Main.activateWindow(window);
    }

    _closed(window) {
        this._watched.get(window).end();
        this._watched.delete(window);
        if (this._told.delete(window))
            this._agent.tell('WindowClosed', '(s)', [`${window.get_id()}`]);
        this._rules.closed(keyOf(window), [...this._watched.keys()].map(keyOf));
    }

    /** Before a window has a picture, its program has not yet said what it is. */
    _describe(window) {
        const { x, y, width, height } = window.get_frame_rect();
        if (width === 0)
            return;
        const facts = [desktopFileOf(window), window.get_wm_class() ?? '', window.get_title() ?? '',
            window.get_pid(), window.minimized, x, y, width, height];
        const text = JSON.stringify(facts);
        if (this._told.get(window) === text)
            return;
        this._told.set(window, text);
        this._agent.tell('WindowChanged', '(ssssibiiii)', [`${window.get_id()}`, ...facts]);
    }

    /**
     * First the program hears of it, while it believes that the source is the one before: so it decides,
     * counts and explains the switch, and finds it made. Then the rule acts, before the window has the keys.
     */
    _focusMoved() {
        const focus = global.display.focus_window;
        const window = this._watched.has(focus) ? focus : null;
        if (window)
            this._describe(window);
        this._agent.tell('WindowActivated', '(s)', [window ? `${window.get_id()}` : '']);
        this._rules.activated(window && keyOf(window));
    }
}
