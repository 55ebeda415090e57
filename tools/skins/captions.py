"""The words that are painted into pictures: a row each, a column a language. The pictures of a skin speak the first
language; where those of another differ they lie in a folder of its name beside them."""

LANGUAGES = ("en", "de")
WORDS = {
    "media": ("Media", "Medien"), "radio": ("Radio", "Radio"), "phone": ("Phone", "Telefon"),
    "navigation": ("Navigation", "Navigation"), "gps": ("GPS", "GPS"), "settings": ("Settings", "Einstellungen"),
    "dvd": ("DVD", "DVD"), "gallery": ("Gallery", "Galerie"), "programs": ("Programs", "Programme"),
    "jump": ("Quick jump", "Schnellwahl"), "night": ("Night", "Nacht"), "day": ("Day", "Tag"),
    "exit": ("Exit", "Beenden"),
    "stations": ("Stations", "Sender"), "hold": ("hold to store", "zum Speichern halten"),
    "frequency": ("Frequency", "Frequenz"), "mhz": ("MHz", "MHz"),
    "dial": ("Dial", "Wählen"), "book": ("Book", "Telefonbuch"), "write": ("Write", "Schreiben"),
    "read": ("Read", "Lesen"), "keyboard": ("Keyboard", "Tastatur"),
    "route": ("Route", "Route"), "meters": ("m", "m"),
    "playlists": ("Playlists", "Playlists"), "load": ("Load", "Laden"), "new": ("New", "Neu"),
    "rename": ("Rename", "Umbenennen"), "empty": ("Empty", "Leeren"), "delete": ("Delete", "Löschen"),
    "start": ("Start", "Starten"), "switch": ("Switch", "Wechseln"),
    "yes": ("Yes", "Ja"), "no": ("No", "Nein"), "ok": ("OK", "OK"),
    "send": ("Send", "Senden"), "close": ("Close", "Schließen"),
    "digits": ("123", "123"),
}


def captions(language):
    """Word for each key."""
    column = LANGUAGES.index(language)
    return {key: words[column] for key, words in WORDS.items()}
