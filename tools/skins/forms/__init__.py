"""The screens: a file for each group. Every function adds its forms to a skin."""

from . import apps, boxes, gps, mainmenu, media, mediasearch, phone, player, radio

EVERY_FORM = (mainmenu.add_main_menu, player.add_media_player, media.add_playlists, mediasearch.add_media_search,
              media.add_gallery, media.add_dvd_player, radio.add_radio, phone.add_phone, phone.add_sms_box, gps.add_gps,
              apps.add_external_apps, apps.add_docked_bar, apps.add_floating_bar, boxes.add_message_box)
