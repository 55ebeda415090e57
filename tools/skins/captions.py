"""The words that are painted into pictures: one table a language, the keys are the same in all of them."""

ENGLISH = {
    "media": "Media", "radio": "Radio", "phone": "Phone", "navigation": "Navigation", "gps": "GPS",
    "dvd": "DVD", "gallery": "Gallery", "programs": "Programs", "night": "Night", "day": "Day",
    "exit": "Exit", "settings": "Settings",
    "stations": "Stations", "hold": "hold to store", "frequency": "Frequency", "mhz": "MHz",
    "dial": "Dial", "book": "Book", "keyboard": "Keyboard", "write": "Write", "read": "Read", "music": "Music",
    "route": "Route", "meters": "m",
    "playlists": "Playlists", "load": "Load", "new": "New", "rename": "Rename", "empty": "Empty", "delete": "Delete",
    "start": "Start", "switch": "Switch", "return": "Return", "jump": "Quick jump",
    "yes": "Yes", "no": "No", "ok": "OK", "send": "Send", "close": "Close",
}
LANGUAGES = {"en": ENGLISH}
