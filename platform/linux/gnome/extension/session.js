
const VERSION = 1; // of what is said on the bus
const OVERVIEW = 'org.gnome.Shell';

/** Everything that is done for the program while this extension is enabled. It decides nothing. */
class Session {
    constructor(service) {
        const session = this;
        this._agent = new Agent(service, {
            Start: () => session._start(),
            Select: (id, activations) => session._rules.select(id, activations),
            SetLatin: id => session._sources.setLatin(id),
            SetRules: (rules, sourceOfOthers) => session._rules.set(rules, sourceOfOthers),
            BindHotKey: (number, accelerator) => session._hotKeys.bind(number, accelerator),
            UnbindHotKey: number => session._hotKeys.unbind(number),
            ShowIndicator: (_, width, height, x, y, scale, mayBeDragged, parameters) => {
                const pixels = parameters.get_child_value(0).get_data_as_bytes();
                session._indicator.show(pixels, width, height, x, y, scale, mayBeDragged);
            },
            MoveIndicator: (x, y) => session._indicator.move(x, y),
            HideIndicator: () => session._indicator.hide(),
            BringToUser: pid => session._windows.bringToUser(pid),
        }, () => this._forget());
        const news = { tell: (...message) => this._isStarted && this._agent.tell(...message) };
        this._isStarted = false;
        this._sources = new Sources(news);
        this._rules = new Rules(this._sources);
        this._windows = new Windows(news, this._rules);
        this._hotKeys = new HotKeys(news);
        this._indicator = new Indicator();
        this._connections = new Connections();
        this._connections.add(Main.overview, 'showing',
            () => news.tell('LauncherChanged', '(sb)', [OVERVIEW, true]));
        this._connections.add(Main.overview, 'hidden',
            () => news.tell('LauncherChanged', '(sb)', [OVERVIEW, false]));
        this._news = news;
    }

    end() {
        this._agent.end();
        this._connections.end();
        this._windows.end();
        this._sources.end();
        this._hotKeys.end();
        this._indicator.end();
    }

    _start() {
        this._forget();
        this._isStarted = true;
        this._sources.tellAll();
        this._windows.tellAll();
        this._news.tell('LauncherChanged', '(sb)', [OVERVIEW, Main.overview.visible]);
        return VERSION;
    }

    /** The program has gone, or starts anew: nothing that it said holds any more. */
    _forget() {
        this._isStarted = false;
        this._rules.forget();
        this._sources.setLatin('');
        this._hotKeys.unbindAll();
        this._indicator.hide();
        this._windows.forgetAwaited();
    }
}
