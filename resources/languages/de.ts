<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>words</name>
    <message>
        <location filename="../../resources/About.ui"/>
        <source>Loop Manager</source>
        <translation>Loop Manager</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <location filename="../../src/updates/windows/firmware_notice.cpp"/>
        <source>Firmware Update</source>
        <translation>Firmware-Update</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <source>Install the firmware</source>
        <translation>Firmware installieren</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Release notes</source>
        <translation>Versionshinweise</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <source>Firmware installation</source>
        <translation>Installation der Firmware</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <source>Installing firmware. Keep the pedal plugged in.</source>
        <translation>Die Firmware wird installiert. Pedal nicht abziehen.</translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Software Update</source>
        <translation>Software-Update</translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up.cpp"/>
        <source>Choose</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up.cpp"/>
        <source>Choose a folder for the backup</source>
        <translation>Ordner für die Sicherung auswählen</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up.cpp"/>
        <source>Choose a folder with backups</source>
        <translation>Ordner mit Sicherungen auswählen</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_compare.cpp"/>
        <location filename="../../src/app/transfer_events.cpp"/>
        <source>Comparing loop %1…</source>
        <translation>Loop %1 wird verglichen …</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <location filename="../../src/app/handed_files.cpp"/>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/slots/slot_description.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <location filename="../../src/ui/panels/backup_tape.cpp"/>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n damaged</source>
        <comment>%n damaged</comment>
        <translation>
            <numerusform>%n beschädigt</numerusform>
            <numerusform>%n beschädigt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n erased</source>
        <comment>%n erased</comment>
        <translation>
            <numerusform>%n gelöscht</numerusform>
            <numerusform>%n gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n new</source>
        <comment>%n new</comment>
        <translation>
            <numerusform>%n neu</numerusform>
            <numerusform>%n neu</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n new or changed, %1</source>
        <comment>%n new or changed, %1</comment>
        <translation>
            <numerusform>%n neu oder geändert, %1</numerusform>
            <numerusform>%n neu oder geändert, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n replaced</source>
        <comment>%n replaced</comment>
        <translation>
            <numerusform>%n ersetzt</numerusform>
            <numerusform>%n ersetzt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n same</source>
        <comment>%n same</comment>
        <translation>
            <numerusform>%n gleich</numerusform>
            <numerusform>%n gleich</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n same as then</source>
        <comment>%n same as then</comment>
        <translation>
            <numerusform>%n wie damals</numerusform>
            <numerusform>%n wie damals</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n same length</source>
        <comment>%n same length</comment>
        <translation>
            <numerusform>%n gleich lang</numerusform>
            <numerusform>%n gleich lang</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>Slot %1, %2, %3, %4</source>
        <translation>Platz %1, %2, %3, %4</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>Slot %1, no loop</source>
        <translation>Platz %1, kein Loop</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>d MMM yyyy, HH:mm</source>
        <translation>d. MMM yyyy, HH:mm</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>damaged</source>
        <translation>beschädigt</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>damaged in the backup</source>
        <translation>in der Sicherung beschädigt</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>erased</source>
        <translation>wird gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>in the backup</source>
        <translation>in der Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>only in the backup</source>
        <translation>nur in der Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>replaces %1</source>
        <translation>ersetzt %1</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>replaces a loop of %1</source>
        <translation>ersetzt einen Loop von %1</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>same</source>
        <translation>gleich</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>same length</source>
        <translation>gleich lang</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>saved again</source>
        <translation>erneut gesichert</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>saved again, as it is damaged in the backup</source>
        <translation>erneut gesichert, da in der Sicherung beschädigt</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>stays</source>
        <translation>bleibt</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>the same length, not compared</source>
        <translation>gleich lang, nicht verglichen</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/app/teller.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>No pedal connected</source>
        <translation>Kein Pedal angeschlossen</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>Reading the folder</source>
        <translation>Der Ordner wird gelesen</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>The pedal already holds everything in this backup</source>
        <translation>Das Pedal enthält bereits alles aus dieser Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>The pedal has no loops</source>
        <translation>Das Pedal hat keine Loops</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>There is no backup in this folder</source>
        <translation>In diesem Ordner ist keine Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>There is not enough room on the pedal for this backup alongside its other loops</source>
        <translation>Neben den anderen Loops ist auf dem Pedal nicht genug Speicher für diese Sicherung frei</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>This backup cannot be restored: %1</source>
        <translation>Diese Sicherung kann nicht wiederhergestellt werden: %1</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>no backup yet</source>
        <translation>noch keine Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>reading…</source>
        <translation>wird gelesen …</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>since %1</source>
        <translation>seit %1</translation>
    </message>
    <message>
        <location filename="../../src/app/backup_flow.cpp"/>
        <source>7306 Back Up</source>
        <translation>7306-Sicherung</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backup_flow.cpp"/>
        <source>Backing up %n loops from the 7306...</source>
        <comment>Backing up %n loop from the 7306...</comment>
        <translation>
            <numerusform>%n Loop vom 7306 wird gesichert …</numerusform>
            <numerusform>%n Loops vom 7306 werden gesichert …</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/backup_flow.cpp"/>
        <location filename="../../src/app/import_flow.cpp"/>
        <location filename="../../src/app/save_report.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Try again</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <location filename="../../src/app/backup_flow.cpp"/>
        <source>the last loop</source>
        <translation>der letzte Loop</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>%1 are staged</source>
        <comment>%1 is staged</comment>
        <translation>
            <numerusform>%1 ist vorgemerkt</numerusform>
            <numerusform>%1 sind vorgemerkt</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Each loop is read before it is erased or replaced.</source>
        <translation>Jeder Loop wird gelesen, bevor er gelöscht oder ersetzt wird.</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>Keep Copies is still off</source>
        <translation>„Kopien aufbewahren“ ist weiterhin ausgeschaltet</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>Keep Copies is still on</source>
        <translation>„Kopien aufbewahren“ ist weiterhin eingeschaltet</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>Other files are staged as well. Export writes all of them.</source>
        <translation>Es sind noch andere Dateien vorgemerkt. „Export“ schreibt alle.</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>copied %1 %2</source>
        <translation>%1 %2 kopiert</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>copied today %1</source>
        <translation>heute %1 kopiert</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>copied yesterday %1</source>
        <translation>gestern %1 kopiert</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>d MMM</source>
        <translation>d. MMM</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>d MMM yyyy</source>
        <translation>d. MMM yyyy</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>ddd</source>
        <translation>ddd</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>erased %1 %2</source>
        <translation>%1 %2 gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>erased today %1</source>
        <translation>heute %1 gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>erased yesterday %1</source>
        <translation>gestern %1 gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>its folder could not be renamed</source>
        <translation>der Ordner dafür konnte nicht umbenannt werden</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>replaced %1 %2</source>
        <translation>%1 %2 ersetzt</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>replaced today %1</source>
        <translation>heute %1 ersetzt</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>replaced yesterday %1</source>
        <translation>gestern %1 ersetzt</translation>
    </message>
    <message>
        <location filename="../../src/app/bus/bus_desktop_shell.cpp"/>
        <location filename="../../src/app/show_folder.cpp"/>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_in.cpp"/>
        <source>%n files go to %1</source>
        <comment>%n file goes to %1</comment>
        <translation>
            <numerusform>%n Datei für %1 vorgemerkt</numerusform>
            <numerusform>%n Dateien für %1 vorgemerkt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_in.cpp"/>
        <source>%n files will wait for a pedal</source>
        <comment>%n file will wait for a pedal</comment>
        <translation>
            <numerusform>%n Datei wartet dann auf ein Pedal</numerusform>
            <numerusform>%n Dateien warten dann auf ein Pedal</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_in.cpp"/>
        <source>Drop between the rows to use all %n files</source>
        <comment>Drop between the rows to use the file</comment>
        <translation>
            <numerusform>Zwischen den Zeilen ablegen, um die Datei zu verwenden</numerusform>
            <numerusform>Zwischen den Zeilen ablegen, um alle %n Dateien zu verwenden</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/carry_in.cpp"/>
        <source>Drop between the rows to use both files</source>
        <translation>Zwischen den Zeilen ablegen, um beide Dateien zu verwenden</translation>
    </message>
    <message>
        <location filename="../../src/app/carry_in.cpp"/>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>not readable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/app/carry_in.cpp"/>
        <source>too long</source>
        <translation>zu lang</translation>
    </message>
    <message>
        <location filename="../../src/app/carry_out.cpp"/>
        <source>%1 was not dragged out</source>
        <translation>%1 wurde nicht herausgezogen</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_out.cpp"/>
        <source>%n loops were not dragged out</source>
        <comment>%n loop was not dragged out</comment>
        <translation>
            <numerusform>%n Loop wurde nicht herausgezogen</numerusform>
            <numerusform>%n Loops wurden nicht herausgezogen</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/carry_out.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>a loop</source>
        <translation>ein Loop</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <location filename="../../src/app/listening_engine.cpp"/>
        <source>Playing %1</source>
        <translation>Wiedergabe: %1</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <location filename="../../src/app/listening_engine.cpp"/>
        <source>Playing %1, %2</source>
        <translation>Wiedergabe: %1, %2</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <source>The copy of %1 could not be played</source>
        <translation>Die Kopie von %1 konnte nicht abgespielt werden</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>its file could not be read</source>
        <translation>die Datei dazu konnte nicht gelesen werden</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erase without a copy</source>
        <translation>Ohne Kopie löschen</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erased loop audio cannot be restored. Would you like to continue?</source>
        <translation>Gelöschte Loops können nicht wiederhergestellt werden. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erasing %1…</source>
        <translation>%1 wird gelöscht …</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erasing loops…</source>
        <translation>Loops werden gelöscht …</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <source>Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would you like to continue?</source>
        <translation>Beim Überschreiben von Plätzen werden Aufnahmen auf dem 7306 gelöscht. Gelöschte Aufnahmen können nicht wiederhergestellt werden. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <source>Replace without a copy</source>
        <translation>Ohne Kopie ersetzen</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <location filename="../../src/app/transfer_events.cpp"/>
        <source>Writing loop %1…</source>
        <translation>Loop %1 wird geschrieben …</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <source>what is staged</source>
        <translation>die vorgemerkte Auswahl</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>"%1" cannot be used</source>
        <translation>„%1“ kann nicht verwendet werden</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>"%1" was sent</source>
        <translation>„%1“ wurde gesendet</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>%n bytes, SHA-256 %1.</source>
        <comment>%n byte, SHA-256 %1.</comment>
        <translation>
            <numerusform>%n Byte, SHA-256 %1.</numerusform>
            <numerusform>%n Byte, SHA-256 %1.</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It is not the maker's newest firmware, %1.</source>
        <translation>Die neueste Firmware des Herstellers ist eine andere, %1.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It is the maker's newest firmware.</source>
        <translation>Es ist die neueste Firmware des Herstellers.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It ran %1 before.</source>
        <translation>Vorher lief darauf %1.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It will be downloaded again.</source>
        <translation>Die Firmware wird erneut heruntergeladen.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>The firmware in the cache cannot be used</source>
        <translation>Die Firmware im Zwischenspeicher kann nicht verwendet werden</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>The pedal has not come back from its restart: unplug it and plug it in again</source>
        <translation>Das Pedal ist nach dem Neustart nicht wieder da: abziehen und wieder anschließen</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>Whether it is the maker's newest firmware is not known.</source>
        <translation>Ob es die neueste Firmware des Herstellers ist, ist nicht bekannt.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>it cannot be read, or it is empty</source>
        <translation>sie ist nicht lesbar oder leer</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <location filename="../../src/operations/sentences.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_flash.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <location filename="../../src/ui/status/announcements.cpp"/>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/ui/panels/backup_tape.cpp"/>
        <location filename="../../src/ui/status/announcements.cpp"/>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Downloading firmware %1, %2 %</source>
        <translation>Firmware %1 wird heruntergeladen, %2 %</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>It runs only its loader, as after an installation that did not finish.</source>
        <translation>Darauf läuft nur der Bootloader, wie nach einer abgebrochenen Installation.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>It runs only its loader, as after an installation that did not finish. Until it has firmware, its loops cannot be listed.</source>
        <translation>Darauf läuft nur der Bootloader, wie nach einer abgebrochenen Installation. Solange die Firmware fehlt, können seine Loops nicht aufgelistet werden.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/ui/alert.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>The maker's firmware has not been downloaded yet.</source>
        <translation>Die Firmware des Herstellers wurde noch nicht heruntergeladen.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal is waiting for firmware</source>
        <translation>Das Pedal wartet auf Firmware</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>This pedal is waiting for firmware.</source>
        <translation>Dieses Pedal wartet auf Firmware.</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Try Again</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Would you like to install %1 now?</source>
        <translation>Möchten Sie %1 jetzt installieren?</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>"%1"</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>"%1" (%2)</source>
        <translation>„%1“ (%2)</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>"%1" is %2</source>
        <translation>„%1“ ist %2</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>Left out: %1.</source>
        <translation>Ausgelassen: %1.</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>No file was used</source>
        <translation>Keine Datei wurde verwendet</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/handed_files.cpp"/>
        <source>Only %n of %1 files were used</source>
        <comment>Only %n of %1 files was used</comment>
        <translation>
            <numerusform>Nur %n von %1 Dateien wurde verwendet</numerusform>
            <numerusform>Nur %n von %1 Dateien wurden verwendet</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>no other row is free</source>
        <translation>keine andere Zeile ist frei</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>no row is free</source>
        <translation>keine Zeile ist frei</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>the others do not fit or cannot be read</source>
        <translation>die übrigen passen nicht oder sind nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/app/import_flow.cpp"/>
        <source>Choose a folder for %1</source>
        <translation>Ordner für %1 auswählen</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/import_flow.cpp"/>
        <source>Choose a folder for %n loops</source>
        <comment>Choose a folder for %n loop</comment>
        <translation>
            <numerusform>Ordner für %n Loop auswählen</numerusform>
            <numerusform>Ordner für %n Loops auswählen</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/import_flow.cpp"/>
        <location filename="../../src/app/loop_reader.cpp"/>
        <location filename="../../src/app/transfer_events.cpp"/>
        <source>Reading loop %1…</source>
        <translation>Loop %1 wird gelesen …</translation>
    </message>
    <message>
        <location filename="../../src/app/import_flow.cpp"/>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <source>Keeping a copy of %1…</source>
        <translation>Kopie von %1 wird aufbewahrt …</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <source>Keeping a copy of %1… %2 %</source>
        <translation>Kopie von %1 wird aufbewahrt … %2 %</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <source>Keeping copies, %1 percent</source>
        <translation>Kopien werden aufbewahrt, %1 Prozent</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <location filename="../../src/app/listening_engine.cpp"/>
        <location filename="../../src/app/loop_reader.cpp"/>
        <location filename="../../src/app/main_window.cpp"/>
        <location filename="../../src/app/verify_flow.cpp"/>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <location filename="../../src/app/launch.cpp"/>
        <source>Device is busy. Try again later.</source>
        <translation>Das Gerät ist beschäftigt. Später erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/app/listening.h"/>
        <location filename="../../src/listening/sound/qt_audio_output.cpp"/>
        <source>No sound device was found.</source>
        <translation>Es wurde kein Audiogerät gefunden.</translation>
    </message>
    <message>
        <location filename="../../src/app/listening_events.cpp"/>
        <source>Waiting for the read of loop %1 to stop</source>
        <translation>Warten, bis Loop %1 nicht mehr gelesen wird</translation>
    </message>
    <message>
        <location filename="../../src/app/listening_events.cpp"/>
        <source>Waiting for the read of loop %1 to stop…</source>
        <translation>Warten, bis Loop %1 nicht mehr gelesen wird …</translation>
    </message>
    <message>
        <location filename="../../src/app/loop_reader.cpp"/>
        <source>%1 could not be read</source>
        <translation>%1 konnte nicht gelesen werden</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Connect the pedal to this computer
by USB and switch it on.
Its loops will appear here.</source>
        <translation>Pedal per USB mit diesem Computer
verbinden und einschalten.
Hier erscheinen dann seine Loops.</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Deselect all loops</source>
        <translation>Auswahl aller Loops aufheben</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <source>Erase</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Export tab, computer to pedal</source>
        <translation>Reiter Export, Computer zu Pedal</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Import tab, pedal to computer</source>
        <translation>Reiter Import, Pedal zu Computer</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Its free space shows here.</source>
        <translation>Hier erscheint sein freier Speicher.</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Plug in your 7306</source>
        <translation>7306 anschließen</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Select all loops</source>
        <translation>Alle Loops auswählen</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Slots marked like this will
replace loops on the pedal.</source>
        <translation>Loops auf so markierten Plätzen
werden auf dem Pedal ersetzt.</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Space in use</source>
        <translation>Belegter Speicher</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>computer to pedal</source>
        <translation>Computer zu Pedal</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>pedal to computer</source>
        <translation>Pedal zu Computer</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <location filename="../../src/ui/strip.cpp"/>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;About 7306 Loop Manager</source>
        <translation>&amp;Über 7306 Loop Manager</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Bring Back…</source>
        <translation>&amp;Zurückholen …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Choose File…</source>
        <translation>&amp;Datei auswählen …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Doctor…</source>
        <translation>&amp;Diagnose …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Export</source>
        <translation>&amp;Export</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Fit to Screen</source>
        <translation>An &amp;Bildschirm anpassen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Import</source>
        <translation>&amp;Import</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Keep Copies</source>
        <translation>K&amp;opien aufbewahren</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Loop</source>
        <translation>&amp;Loop</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Paste Files</source>
        <translation>Dateien &amp;einfügen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Play</source>
        <translation>&amp;Abspielen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Recent Results</source>
        <translation>&amp;Letzte Ergebnisse</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Restore…</source>
        <translation>&amp;Wiederherstellen …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Save Report…</source>
        <translation>Bericht s&amp;peichern …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;User Guide</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Verify After Export</source>
        <translation>Nach dem Export &amp;prüfen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Back &amp;Up…</source>
        <translation>&amp;Sichern …</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Re&amp;move</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Select &amp;All</source>
        <translation>&amp;Alle auswählen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Select &amp;None</source>
        <translation>&amp;Keine auswählen</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <source>Please connect your device and try again.</source>
        <translation>Gerät anschließen und erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <source>Version %1 is the newest 7306 firmware available.</source>
        <translation>Version %1 ist die neueste verfügbare Firmware für das 7306.</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>You're up to date!</source>
        <translation>Alles auf dem neuesten Stand!</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <source>Your 7306 device is not connected</source>
        <translation>Ihr 7306 ist nicht angeschlossen</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 and %2</source>
        <translation>%1 und %2</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 cannot be read</source>
        <translation>%1 ist nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 is too long</source>
        <translation>%1 ist zu lang</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 is too long: %2, and %3 is left</source>
        <translation>%1 ist zu lang: %2, frei sind noch %3</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 is too long: %2, and %3 is left beside the others</source>
        <translation>%1 ist zu lang: %2, neben den anderen sind noch %3 frei</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%n files fit</source>
        <comment>%n file fits</comment>
        <translation>
            <numerusform>%n Datei passt</numerusform>
            <numerusform>%n Dateien passen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%n of %1 files fit</source>
        <comment>%n of %1 files fits</comment>
        <translation>
            <numerusform>%n von %1 Dateien passt</numerusform>
            <numerusform>%n von %1 Dateien passen</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>Left out: %1</source>
        <translation>Ausgelassen: %1</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>No other row is free</source>
        <translation>Keine andere Zeile ist frei</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>No row is free</source>
        <translation>Keine Zeile ist frei</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>None of the %n files fits</source>
        <comment>The file does not fit</comment>
        <translation>
            <numerusform>Die Datei passt nicht</numerusform>
            <numerusform>Keine von %n Dateien passt</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>too long: %1, and %2 is left</source>
        <translation>zu lang: %1, frei sind noch %2</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>too long: %1, and %2 is left beside the others</source>
        <translation>zu lang: %1, neben den anderen sind noch %2 frei</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/presenter.cpp"/>
        <source>%1 of %n minutes in use</source>
        <comment>%1 of %n minute in use</comment>
        <translation>
            <numerusform>%1 von %n Minute belegt</numerusform>
            <numerusform>%1 von %n Minuten belegt</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/program/simulation_menu.cpp"/>
        <source>%1 – simulated pedal</source>
        <translation>%1 – simuliertes Pedal</translation>
    </message>
    <message>
        <location filename="../../src/app/program/simulation_menu.cpp"/>
        <source>&amp;Pedal Plugged In</source>
        <translation>&amp;Pedal angeschlossen</translation>
    </message>
    <message>
        <location filename="../../src/app/program/simulation_menu.cpp"/>
        <source>&amp;Simulation</source>
        <translation>&amp;Simulation</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>7306 Restore</source>
        <translation>7306-Wiederherstellung</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Both are copied first; Edit &gt; Bring Back returns them.</source>
        <translation>Beide Loops werden vorher kopiert; „Bearbeiten &gt; Zurückholen“ holt sie zurück.</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/app/save_report.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/ui/alert.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Comparing the 7306 with the backup...</source>
        <translation>Das 7306 wird mit der Sicherung verglichen …</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Comparing with the backup…</source>
        <translation>Vergleich mit der Sicherung …</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Erased audio cannot be restored.</source>
        <translation>Gelöschte Aufnahmen können nicht wiederhergestellt werden.</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>It is copied first; Edit &gt; Bring Back returns it.</source>
        <translation>Dieser Loop wird vorher kopiert; „Bearbeiten &gt; Zurückholen“ holt ihn zurück.</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Keep Copies</source>
        <translation>Kopien aufbewahren</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Nothing was restored</source>
        <translation>Nichts wiederhergestellt</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Restore without a copy</source>
        <translation>Ohne Kopie wiederherstellen</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Restoring %n loops to the 7306...</source>
        <comment>Restoring %n loop to the 7306...</comment>
        <translation>
            <numerusform>%n Loop wird auf dem 7306 wiederhergestellt …</numerusform>
            <numerusform>%n Loops werden auf dem 7306 wiederhergestellt …</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Restoring…</source>
        <translation>Wiederherstellung läuft …</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>They are copied first; Edit &gt; Bring Back returns them.</source>
        <translation>Diese Loops werden vorher kopiert; „Bearbeiten &gt; Zurückholen“ holt sie zurück.</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>To be erased: %1.</source>
        <translation>Zu löschen: %1.</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>To be replaced: %1.</source>
        <translation>Zu ersetzen: %1.</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>the backup</source>
        <translation>die Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/app/said.h"/>
        <source>%1 staged for %2, %3</source>
        <translation>%1 für %2 vorgemerkt, %3</translation>
    </message>
    <message>
        <location filename="../../src/app/said.h"/>
        <source>%1 staged for %2, %3, replaces a loop of %4</source>
        <translation>%1 für %2 vorgemerkt, %3, ersetzt einen Loop von %4</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/said.h"/>
        <source>7306 connected, %n loops, %1 free</source>
        <comment>7306 connected, %n loop, %1 free</comment>
        <translation>
            <numerusform>7306 angeschlossen, %n Loop, %1 frei</numerusform>
            <numerusform>7306 angeschlossen, %n Loops, %1 frei</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/said.h"/>
        <source>7306 disconnected</source>
        <translation>7306 abgezogen</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>A text file that you can read and send: the versions of the program and of this computer's system, what keeps the pedal from being used, the last results and the log. There is no audio in it, and neither your name nor that of your home folder.</source>
        <translation>Eine Textdatei, die Sie lesen und weitergeben können: die Versionen des Programms und des Systems dieses Computers, was die Nutzung des Pedals verhindert, die letzten Ergebnisse und das Protokoll. Sie enthält keine Aufnahmen und weder Ihren Namen noch den Ihres persönlichen Ordners.</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Include file names</source>
        <translation>Dateinamen aufnehmen</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Save Report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Save a report for troubleshooting?</source>
        <translation>Bericht zur Fehlersuche speichern?</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Save…</source>
        <translation>Speichern …</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Saving the report…</source>
        <translation>Der Bericht wird gespeichert …</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Text files</source>
        <translation>Textdateien</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Loops can be imported now</source>
        <translation>Loops können jetzt importiert werden</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Run in a terminal: %1</source>
        <translation>Im Terminal ausführen: %1</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/device/finding.h"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <location filename="../../src/operations/sentences.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Run: %1</source>
        <translation>Ausführen: %1</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Set Up</source>
        <translation>Einrichten</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Set up</source>
        <translation>Einrichten</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Setting up…</source>
        <translation>Einrichtung läuft …</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>The system rule is installed</source>
        <translation>Die Systemregel ist installiert</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>The system rule is installed, but something else is in the way</source>
        <translation>Die Systemregel ist installiert, aber etwas anderes steht im Weg</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>The system rule was not installed</source>
        <translation>Die Systemregel wurde nicht installiert</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>This sets it up, with your password: %1</source>
        <translation>Mit Ihrem Passwort wird Folgendes ausgeführt: %1</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>"%1" goes to the row of %2</source>
        <translation>„%1“ kommt in die Zeile von %2</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>"%1" was left out</source>
        <translation>„%1“ wurde ausgelassen</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/staging.cpp"/>
        <source>"Stage again" puts them on the same rows.</source>
        <comment>"Stage again" puts it on the same row.</comment>
        <translation>
            <numerusform>„Erneut vormerken“ setzt sie wieder in dieselbe Zeile.</numerusform>
            <numerusform>„Erneut vormerken“ setzt sie wieder in dieselben Zeilen.</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>%1 has another file.</source>
        <translation>%1 hat eine andere Datei.</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Audio files</source>
        <translation>Audiodateien</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Choose an audio file for %1</source>
        <translation>Audiodatei für %1 auswählen</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Each row takes one file.</source>
        <translation>Jede Zeile nimmt eine Datei auf.</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/staging.cpp"/>
        <source>Only the first of %n files was used</source>
        <comment>Only the first of %n file was used</comment>
        <translation>
            <numerusform>Nur die erste von %n Datei wurde verwendet</numerusform>
            <numerusform>Nur die erste von %n Dateien wurde verwendet</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Plugged in: staged files were removed, as the pedal's slots may differ</source>
        <translation>Angeschlossen: vorgemerkte Dateien wurden entfernt, da die Plätze des Pedals anders belegt sein können</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Stage again</source>
        <translation>Erneut vormerken</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>There is no free row for "%1"</source>
        <translation>Für „%1“ ist keine Zeile frei</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Use it anyway</source>
        <translation>Trotzdem verwenden</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>it is too long: %1, and %2 is left</source>
        <translation>sie ist zu lang: %1, frei sind noch %2</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/teller.cpp"/>
        <source>%1 were not saved</source>
        <comment>%1 was not saved</comment>
        <translation>
            <numerusform>%1 wurde nicht gespeichert</numerusform>
            <numerusform>%1 wurden nicht gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/teller.cpp"/>
        <source>%n files are waiting</source>
        <comment>%n file is waiting</comment>
        <translation>
            <numerusform>%n Datei wartet</numerusform>
            <numerusform>%n Dateien warten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/teller.cpp"/>
        <location filename="../../src/loops/facts.h"/>
        <source>%n loops</source>
        <comment>%n loop</comment>
        <translation>
            <numerusform>%n Loop</numerusform>
            <numerusform>%n Loops</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Back Up…</source>
        <translation>Sichern …</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Cancel, or unplug it.</source>
        <translation>Abbrechen oder Pedal abziehen.</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Stop it, or unplug the pedal.</source>
        <translation>Stoppen oder Pedal abziehen.</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering</source>
        <translation>Das Pedal antwortet nicht mehr</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering: cancel, or unplug it</source>
        <translation>Das Pedal antwortet nicht mehr: abbrechen oder abziehen</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering: stop, or unplug it</source>
        <translation>Das Pedal antwortet nicht mehr: stoppen oder abziehen</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering: unplug it</source>
        <translation>Das Pedal antwortet nicht mehr: abziehen</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Unplug it.</source>
        <translation>Pedal abziehen.</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>What is erased now is gone.</source>
        <translation>Was jetzt gelöscht wird, ist verloren.</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>firmware %1</source>
        <translation>Firmware %1</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>nothing has been backed up yet</source>
        <translation>noch nichts gesichert</translation>
    </message>
    <message>
        <location filename="../../src/app/time_left.cpp"/>
        <source>about %1 min left</source>
        <translation>noch etwa %1 min</translation>
    </message>
    <message>
        <location filename="../../src/app/time_left.cpp"/>
        <source>about %1 s left</source>
        <translation>noch etwa %1 s</translation>
    </message>
    <message>
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>7306 Export</source>
        <translation>7306-Export</translation>
    </message>
    <message>
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>7306 Import</source>
        <translation>7306-Import</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>Exporting %n loops to the 7306...</source>
        <comment>Exporting %n loop to the 7306...</comment>
        <translation>
            <numerusform>%n Loop wird auf das 7306 exportiert …</numerusform>
            <numerusform>%n Loops werden auf das 7306 exportiert …</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>Importing %n loops from the 7306...</source>
        <comment>Importing %n loop from the 7306...</comment>
        <translation>
            <numerusform>%n Loop wird vom 7306 importiert …</numerusform>
            <numerusform>%n Loops werden vom 7306 importiert …</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>Open %1 in a browser.</source>
        <translation>%1 im Browser öffnen.</translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>The program looks for share/kzq7306/guide/guide.html below the folder it is installed in. In the source it is doc/guide.md.</source>
        <translation>Das Programm sucht share/kzq7306/guide/guide.html unterhalb seines Installationsordners. Im Quelltext ist es doc/guide.md.</translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>The user guide could not be opened</source>
        <translation>Das Handbuch konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>The user guide is not installed</source>
        <translation>Das Handbuch ist nicht installiert</translation>
    </message>
    <message>
        <location filename="../../src/app/verify_flow.cpp"/>
        <source>Verifying loop %1…</source>
        <translation>Loop %1 wird geprüft …</translation>
    </message>
    <message>
        <location filename="../../src/audio/aiff_facts.cpp"/>
        <source>%1-bit little-endian AIFF-C</source>
        <translation>AIFF-C mit %1 Bit, Little Endian</translation>
    </message>
    <message>
        <location filename="../../src/audio/convert.cpp"/>
        <source>the name has no extension</source>
        <translation>der Name hat keine Endung</translation>
    </message>
    <message>
        <location filename="../../src/audio/convert.cpp"/>
        <source>the path has no folder</source>
        <translation>der Pfad hat keinen Ordner</translation>
    </message>
    <message>
        <location filename="../../src/audio/converted_audio.cpp"/>
        <source>the converted file cannot be read</source>
        <translation>die umgewandelte Datei ist nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/audio/source_facts.cpp"/>
        <source>Flash video</source>
        <translation>Flash-Video</translation>
    </message>
    <message>
        <location filename="../../src/audio/source_facts.cpp"/>
        <source>big-endian WAV (RIFX)</source>
        <translation>WAV in Big Endian (RIFX)</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <source>%1 is using the pedal</source>
        <translation>%1 verwendet das Pedal</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <source>A simulated pedal is used instead of a real one.</source>
        <translation>Statt eines echten wird ein simuliertes Pedal verwendet.</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <source>Another program is using the pedal</source>
        <translation>Ein anderes Programm verwendet das Pedal</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Run "kzq7306ctl doctor" to see how to fix it.</source>
        <translation>„kzq7306ctl doctor“ zeigt, wie es sich beheben lässt.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>A pedal is on the USB bus, but %1 does not exist, as in a container without access to /dev/bus/usb.</source>
        <translation>Ein Pedal ist am USB-Bus, aber %1 existiert nicht, wie in einem Container ohne Zugriff auf /dev/bus/usb.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>A pedal is on the USB bus.</source>
        <translation>Ein Pedal ist am USB-Bus.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Another program is using the pedal. Find out which one and close it.</source>
        <translation>Ein anderes Programm verwendet das Pedal. Dieses Programm ausfindig machen und schließen.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops can be imported.</source>
        <translation>Loops können importiert werden.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: %1 could not be opened in time (%2), as the udev rule for it is not installed.</source>
        <translation>Loops können nicht importiert werden: %1 konnte nicht rechtzeitig geöffnet werden (%2), da die udev-Regel dafür nicht installiert ist.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: %1 could not be opened in time (%2), as you are logged in over the network and its udev rule is for the user at the computer.</source>
        <translation>Loops können nicht importiert werden: %1 konnte nicht rechtzeitig geöffnet werden (%2), da Sie über das Netzwerk angemeldet sind und die udev-Regel dafür nur für Benutzer direkt am Computer gilt.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: %1 could not be opened in time (%2). The computer may have been too busy: try again. If that does not help, apply the rules again.</source>
        <translation>Loops können nicht importiert werden: %1 konnte nicht rechtzeitig geöffnet werden (%2). Vielleicht war der Computer zu beschäftigt: erneut versuchen. Wenn das nicht hilft, die Regeln erneut anwenden.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: the kernel passes on the request for them only through its usbtmc driver, and the udev rules for that are not installed.</source>
        <translation>Loops können nicht importiert werden: Der Kernel reicht die Anfrage danach nur über seinen Treiber usbtmc weiter, und die udev-Regeln dafür sind nicht installiert.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: the kernel's usbtmc driver is not loaded. Either the udev rules were not yet installed when the pedal was plugged in, or this kernel comes without the driver, as those made for virtual machines do.</source>
        <translation>Loops können nicht importiert werden: Der Treiber usbtmc des Kernels ist nicht geladen. Entweder waren die udev-Regeln beim Anschließen des Pedals noch nicht installiert, oder dieser Kernel enthält den Treiber nicht, wie es bei Kernels für virtuelle Maschinen der Fall ist.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: the udev rules for it were not yet installed when the pedal was plugged in.</source>
        <translation>Loops können nicht importiert werden: Die udev-Regeln dafür waren beim Anschließen des Pedals noch nicht installiert.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>No other program is using the pedal.</source>
        <translation>Kein anderes Programm verwendet das Pedal.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>No pedal is on the USB bus. Check the cable and the pedal's power, then look again.</source>
        <translation>Kein Pedal am USB-Bus. Kabel und Stromversorgung des Pedals prüfen, dann erneut nachsehen.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>The kernel driver %1 is holding the pedal.</source>
        <translation>Der Kerneltreiber %1 hält das Pedal fest.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>The pedal is in use by %1. Close that program, or wait until it has finished.</source>
        <translation>Das Pedal wird von %1 verwendet. Dieses Programm schließen oder warten, bis es fertig ist.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You do not have permission to use the pedal: its udev rule is not installed.</source>
        <translation>Sie dürfen das Pedal nicht verwenden: Die udev-Regel dafür ist nicht installiert.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You do not have permission to use the pedal: its udev rule was not yet installed when the pedal was plugged in, or you are not logged in at this computer.</source>
        <translation>Sie dürfen das Pedal nicht verwenden: Die udev-Regel dafür war beim Anschließen des Pedals noch nicht installiert, oder Sie sind nicht an diesem Computer angemeldet.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You do not have permission to use the pedal: you are logged in over the network, and its udev rule is for the user at the computer. The group plugdev can be allowed to use it.</source>
        <translation>Sie dürfen das Pedal nicht verwenden: Sie sind über das Netzwerk angemeldet, und die udev-Regel gilt nur für Benutzer direkt am Computer. Der Gruppe plugdev kann die Verwendung erlaubt werden.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You have permission to use the pedal.</source>
        <translation>Sie dürfen das Pedal verwenden.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>the file of the kernel's usbtmc driver</source>
        <translation>die Datei des Kerneltreibers usbtmc</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>udev is not running, as in a container, so a pedal that is plugged in later is not noticed. Plug it in before starting the program, or run the program outside the container.</source>
        <translation>udev läuft nicht, wie in einem Container; ein später angeschlossenes Pedal wird daher nicht bemerkt. Pedal vor dem Programmstart anschließen oder das Programm außerhalb des Containers starten.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>udev is running.</source>
        <translation>udev läuft.</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/lock_holder.h"/>
        <source>%1 (process %2)</source>
        <translation>%1 (Prozess %2)</translation>
    </message>
    <message>
        <location filename="../../src/listening/sound/qt_audio_output.cpp"/>
        <source>The sound device does not play 44,100 Hz.</source>
        <translation>Das Audiogerät unterstützt 44.100 Hz nicht.</translation>
    </message>
    <message>
        <location filename="../../src/listening/sound/qt_audio_output.cpp"/>
        <source>The sound device stopped working.</source>
        <translation>Das Audiogerät funktioniert nicht mehr.</translation>
    </message>
    <message>
        <location filename="../../src/loops/capacity.cpp"/>
        <source>Space remaining: %1 min, %2 sec</source>
        <translation>Noch frei: %1 min, %2 s</translation>
    </message>
    <message>
        <location filename="../../src/loops/capacity.cpp"/>
        <source>This file is too large for the available space on your 7306.</source>
        <translation>Diese Datei ist zu groß für den freien Speicher auf Ihrem 7306.</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/loops/spoken_length.h"/>
        <source>%n minutes %1</source>
        <comment>%n minute %1</comment>
        <translation>
            <numerusform>%n Minute %1</numerusform>
            <numerusform>%n Minuten %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/loops/spoken_length.h"/>
        <source>%n seconds</source>
        <comment>%n second</comment>
        <translation>
            <numerusform>%n Sekunde</numerusform>
            <numerusform>%n Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <source>%1 was not copied, %2</source>
        <translation>%1 wurde nicht kopiert (%2)</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <source>Stop it and try again.</source>
        <translation>Pedal anhalten und erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <source>no copy was kept, %1</source>
        <translation>es wurde keine Kopie aufbewahrt (%1)</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>stopped</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal was in use while its loops were copied</source>
        <translation>das Pedal war in Gebrauch, während seine Loops kopiert wurden</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 does not match what was written.</source>
        <translation>%1 stimmt nicht mit den geschriebenen Daten überein.</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was being written; the slot may now be empty.</source>
        <translation>%1 wurde gerade geschrieben; der Platz ist jetzt möglicherweise leer.</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not compared: %2</source>
        <translation>%1 wurde nicht verglichen: %2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not erased: %2</source>
        <translation>%1 wurde nicht gelöscht: %2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not saved: %2</source>
        <translation>%1 wurde nicht gespeichert: %2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not written: %2</source>
        <translation>%1 wurde nicht geschrieben: %2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not written: it was sent, but the pedal does not hold all of it.</source>
        <translation>%1 wurde nicht geschrieben: gesendet, aber nicht vollständig auf dem Pedal.</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was sent but could not be read back: %2</source>
        <translation>%1 wurde gesendet, konnte aber nicht zurückgelesen werden: %2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was sent; what the pedal holds of it was not checked.</source>
        <translation>%1 wurde gesendet; was davon auf dem Pedal ist, wurde nicht geprüft.</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Some of the loops may have been erased.</source>
        <translation>Einige der Loops wurden möglicherweise gelöscht.</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>The slot may now be empty.</source>
        <translation>Der Platz ist jetzt möglicherweise leer.</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 changed meanwhile</source>
        <translation>%1 wurde inzwischen geändert</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 changed while it was being read</source>
        <translation>%1 hat sich beim Lesen geändert</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 is missing or has been changed</source>
        <translation>%1 fehlt oder wurde verändert</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 is still on the pedal</source>
        <translation>%1 ist noch auf dem Pedal</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 was changed on the pedal meanwhile</source>
        <translation>%1 wurde inzwischen auf dem Pedal geändert</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 was erased on the pedal meanwhile</source>
        <translation>%1 wurde inzwischen auf dem Pedal gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 was recorded on the pedal meanwhile</source>
        <translation>%1 wurde inzwischen auf dem Pedal aufgenommen</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Check the rows and start again.</source>
        <translation>Zeilen prüfen und neu beginnen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Erase loops, or choose shorter files.</source>
        <translation>Loops löschen oder kürzere Dateien auswählen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>The pedal is in use by another program. Close that program, then try again.</source>
        <translation>Das Pedal wird von einem anderen Programm verwendet. Dieses schließen und erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Unplug the pedal and plug it in again.</source>
        <translation>Pedal abziehen und wieder anschließen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Unplug the pedal, plug it in again and start again.</source>
        <translation>Pedal abziehen, wieder anschließen und neu beginnen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>a kernel driver is holding the pedal</source>
        <translation>ein Kerneltreiber hält das Pedal fest</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>another program is using the pedal</source>
        <translation>ein anderes Programm verwendet das Pedal</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>it changed while it was being read</source>
        <translation>er hat sich beim Lesen geändert</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>it is still on the pedal</source>
        <translation>er ist noch auf dem Pedal</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>no space left on the disk</source>
        <translation>kein Speicherplatz mehr auf dem Datenträger</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the file cannot be written</source>
        <translation>die Datei kann nicht geschrieben werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the folder cannot be written to</source>
        <translation>in den Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the folder is not there any more</source>
        <translation>der Ordner ist nicht mehr vorhanden</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal did not report its loops</source>
        <translation>das Pedal hat seine Loops nicht gemeldet</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal does not hold all of %1</source>
        <translation>%1 ist nicht vollständig auf dem Pedal</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal does not hold all of it</source>
        <translation>er ist nicht vollständig auf dem Pedal</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal has too little room</source>
        <translation>das Pedal hat zu wenig Speicher frei</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal is busy</source>
        <translation>das Pedal ist beschäftigt</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal is waiting for firmware</source>
        <translation>das Pedal wartet auf Firmware</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused %1</source>
        <translation>%1 wurde vom Pedal abgelehnt</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused it</source>
        <translation>das Pedal hat ihn abgelehnt</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused to send %1</source>
        <translation>%1 wurde vom Pedal nicht herausgegeben</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused to send it</source>
        <translation>das Pedal hat ihn nicht herausgegeben</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal reports %1 as longer than 24 minutes</source>
        <translation>%1 ist laut Pedal länger als dessen 24 Minuten</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal reports it as longer than 24 minutes</source>
        <translation>er ist laut Pedal länger als dessen 24 Minuten</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal reports it as longer than 24 minutes, which is impossible. Unplug the pedal, plug it in again and try again.</source>
        <translation>er ist laut Pedal länger als dessen 24 Minuten, was nicht sein kann. Pedal abziehen, wieder anschließen und erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal stopped answering</source>
        <translation>das Pedal antwortet nicht mehr</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal stopped partway through</source>
        <translation>das Pedal hat mittendrin aufgehört</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal was unplugged</source>
        <translation>das Pedal wurde abgezogen</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the slot is empty</source>
        <translation>der Platz ist leer</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>there is not enough memory to hold it</source>
        <translation>der Arbeitsspeicher reicht dafür nicht aus</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>this computer did not pass the request on to the pedal</source>
        <translation>dieser Computer hat die Anfrage nicht an das Pedal weitergereicht</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>too little space on the disk</source>
        <translation>zu wenig Speicherplatz auf dem Datenträger</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>%1 ms are missing at its end</source>
        <translation>am Ende fehlen %1 ms</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>%1 ms of it cannot be read</source>
        <translation>%1 ms davon sind nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>%1 was not saved: could not write to %2: %3</source>
        <translation>%1 wurde nicht gespeichert: In %2 konnte nicht geschrieben werden: %3</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>,</source>
        <extracomment>Between the thousands of a number.</extracomment>
        <translation>.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a folder that allows files of this size.</source>
        <translation>Einen Ordner auswählen, der Dateien dieser Größe zulässt.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a folder that exists.</source>
        <translation>Einen vorhandenen Ordner auswählen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a folder that you can write to.</source>
        <translation>Einen Ordner auswählen, in den Sie schreiben dürfen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a shorter name.</source>
        <translation>Einen kürzeren Namen wählen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Converting the file takes too much time or memory.</source>
        <translation>Die Umwandlung der Datei braucht zu viel Zeit oder Arbeitsspeicher.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Free some space or choose another folder.</source>
        <translation>Speicherplatz freigeben oder einen anderen Ordner auswählen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The audio converter %1 is not installed. To install it: sudo apt install ffmpeg</source>
        <translation>Der Audiokonverter %1 ist nicht installiert. So wird er installiert: sudo apt install ffmpeg</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The audio converter failed: %1.</source>
        <translation>Die Umwandlung ist fehlgeschlagen: %1.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The conversion was cancelled.</source>
        <translation>Die Umwandlung wurde abgebrochen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The converted file cannot be written: %1</source>
        <translation>Die umgewandelte Datei kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file cannot be read: %1.</source>
        <translation>Die Datei ist nicht lesbar: %1.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file contains no audio.</source>
        <translation>Die Datei enthält keine Audiodaten.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file is damaged or incomplete.</source>
        <translation>Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file is damaged or incomplete: %1.</source>
        <translation>Die Datei ist beschädigt oder unvollständig: %1.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file is not audio, or its format is not supported. Use WAV, AIFF, FLAC, MP3, M4A, AAC or AC3.</source>
        <translation>Die Datei ist keine Audiodatei, oder ihr Format wird nicht unterstützt. WAV, AIFF, FLAC, MP3, M4A, AAC oder AC3 verwenden.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file's sample rate is %1 Hz; it must be from 4,000 to 768,000 Hz.</source>
        <translation>Die Abtastrate der Datei beträgt %1 Hz; sie muss zwischen 4.000 und 768.000 Hz liegen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The maker's list of firmware has not been read yet.</source>
        <translation>Die Firmware-Liste des Herstellers wurde noch nicht gelesen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The maker's list of firmware was last read at %1.</source>
        <translation>Die Firmware-Liste des Herstellers wurde zuletzt um %1 gelesen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The recording cannot be written and ends here: %1.</source>
        <translation>Die Aufzeichnung des USB-Verkehrs kann nicht geschrieben werden und endet hier: %1.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server could not be reached (%1). Check the internet connection and try again.</source>
        <translation>Der Update-Server ist nicht erreichbar (%1). Internetverbindung prüfen und erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server could not prove its identity (%1). Check the computer's clock and its certificates.</source>
        <translation>Der Update-Server konnte seine Identität nicht nachweisen (%1). Uhr und Zertifikate des Computers prüfen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server did not answer as expected (%1). Try again later.</source>
        <translation>Der Update-Server hat nicht wie erwartet geantwortet (%1). Später erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server did not list any usable firmware. Try again later.</source>
        <translation>Der Update-Server hat keine verwendbare Firmware aufgeführt. Später erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is no folder for temporary files.</source>
        <translation>Es gibt keinen Ordner für temporäre Dateien.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is not enough disk space.</source>
        <translation>Auf dem Datenträger ist nicht genug Speicherplatz.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is too little space in "%1": %2. Make room or choose another folder.</source>
        <translation>In „%1“ ist zu wenig Speicherplatz frei: %2. Speicherplatz freigeben oder einen anderen Ordner auswählen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>This audio format is not supported: %1. Use WAV, AIFF, FLAC, MP3, M4A, AAC or AC3.</source>
        <translation>Dieses Audioformat wird nicht unterstützt: %1. WAV, AIFF, FLAC, MP3, M4A, AAC oder AC3 verwenden.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>This is a folder or a device, not a file.</source>
        <translation>Dies ist ein Ordner oder ein Gerät, keine Datei.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>its end is missing</source>
        <translation>das Ende fehlt</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>part of it cannot be read</source>
        <translation>ein Teil davon ist nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>this computer did not pass the request on to the pedal: the file of the kernel's usbtmc driver could not be opened in time.</source>
        <translation>dieser Computer hat die Anfrage nicht an das Pedal weitergereicht: Die Datei des Kerneltreibers usbtmc konnte nicht rechtzeitig geöffnet werden.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>this computer did not pass the request on to the pedal: the kernel's usbtmc driver, which it needs, does not know the pedal.</source>
        <translation>dieser Computer hat die Anfrage nicht an das Pedal weitergereicht: Der dafür nötige Kerneltreiber usbtmc kennt das Pedal nicht.</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>this computer did not pass the request on to the pedal: the udev rules for it are not installed.</source>
        <translation>dieser Computer hat die Anfrage nicht an das Pedal weitergereicht: Die udev-Regeln dafür sind nicht installiert.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>"%1" cannot be read</source>
        <translation>„%1“ ist nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>"%1" is damaged</source>
        <translation>„%1“ ist beschädigt</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 are still on the pedal.</source>
        <comment>%1 is still on the pedal.</comment>
        <translation>
            <numerusform>%1 ist noch auf dem Pedal.</numerusform>
            <numerusform>%1 sind noch auf dem Pedal.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 are still only on the pedal.</source>
        <comment>%1 is still only on the pedal.</comment>
        <translation>
            <numerusform>%1 ist weiterhin nur auf dem Pedal.</numerusform>
            <numerusform>%1 sind weiterhin nur auf dem Pedal.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 could not be read back</source>
        <comment>%1 could not be read back</comment>
        <translation>
            <numerusform>%1 konnte nicht zurückgelesen werden</numerusform>
            <numerusform>%1 konnten nicht zurückgelesen werden</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 erased</source>
        <translation>%1 gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 may have been erased</source>
        <translation>%1 wurde möglicherweise gelöscht</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops erased</source>
        <comment>%1 of %n loop erased</comment>
        <translation>
            <numerusform>%1 von %n Loop gelöscht</numerusform>
            <numerusform>%1 von %n Loops gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops saved</source>
        <comment>%1 of %n loop saved</comment>
        <translation>
            <numerusform>%1 von %n Loop gespeichert</numerusform>
            <numerusform>%1 von %n Loops gespeichert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops sent, but not checked</source>
        <comment>%1 of %n loop sent, but not checked</comment>
        <translation>
            <numerusform>%1 von %n Loop gesendet, aber nicht geprüft</numerusform>
            <numerusform>%1 von %n Loops gesendet, aber nicht geprüft</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops written</source>
        <comment>%1 of %n loop written</comment>
        <translation>
            <numerusform>%1 von %n Loop geschrieben</numerusform>
            <numerusform>%1 von %n Loops geschrieben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 on the pedal differ from their files</source>
        <comment>%1 on the pedal differs from its file</comment>
        <translation>
            <numerusform>%1 auf dem Pedal weicht von seiner Datei ab</numerusform>
            <numerusform>%1 auf dem Pedal weichen von ihren Dateien ab</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 saved</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 saved in %2</source>
        <translation>%1 in %2 gespeichert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 sent, but not checked</source>
        <translation>%1 gesendet, aber nicht geprüft</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 verified</source>
        <translation>%1 geprüft</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 was not erased</source>
        <translation>%1 wurde nicht gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 was not saved</source>
        <translation>%1 wurde nicht gespeichert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 was not written</source>
        <translation>%1 wurde nicht geschrieben</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 were not compared.</source>
        <comment>%1 was not compared.</comment>
        <translation>
            <numerusform>%1 wurde nicht verglichen.</numerusform>
            <numerusform>%1 wurden nicht verglichen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 were not written.</source>
        <comment>%1 was not written.</comment>
        <translation>
            <numerusform>%1 wurde nicht geschrieben.</numerusform>
            <numerusform>%1 wurden nicht geschrieben.</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 written</source>
        <translation>%1 geschrieben</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops erased</source>
        <comment>%n loop erased</comment>
        <translation>
            <numerusform>%n Loop gelöscht</numerusform>
            <numerusform>%n Loops gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops saved</source>
        <comment>%n loop saved</comment>
        <translation>
            <numerusform>%n Loop gespeichert</numerusform>
            <numerusform>%n Loops gespeichert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops saved in %1</source>
        <comment>%n loop saved in %1</comment>
        <translation>
            <numerusform>%n Loop in %1 gespeichert</numerusform>
            <numerusform>%n Loops in %1 gespeichert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops sent, but not checked</source>
        <comment>%n loop sent, but not checked</comment>
        <translation>
            <numerusform>%n Loop gesendet, aber nicht geprüft</numerusform>
            <numerusform>%n Loops gesendet, aber nicht geprüft</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops verified</source>
        <comment>%n loop verified</comment>
        <translation>
            <numerusform>%n Loop geprüft</numerusform>
            <numerusform>%n Loops geprüft</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops written</source>
        <comment>%n loop written</comment>
        <translation>
            <numerusform>%n Loop geschrieben</numerusform>
            <numerusform>%n Loops geschrieben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>Loops %1</source>
        <comment>Loop %1</comment>
        <translation>
            <numerusform>Loop %1</numerusform>
            <numerusform>Loops %1</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Loops cannot be imported</source>
        <translation>Loops können nicht importiert werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was erased</source>
        <translation>Nichts gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was erased.</source>
        <translation>Nichts gelöscht.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was saved</source>
        <translation>Nichts gespeichert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was saved.</source>
        <translation>Nichts gespeichert.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was written</source>
        <translation>Nichts geschrieben</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was written.</source>
        <translation>Nichts geschrieben.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Report saved in %1</source>
        <translation>Bericht in %1 gespeichert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Some of the loops may have been erased</source>
        <translation>Einige der Loops wurden möglicherweise gelöscht</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>The pedal became busy; close and reopen the window to go on</source>
        <translation>Das Pedal ist beschäftigt; Fenster schließen und wieder öffnen, um fortzufahren</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>The recording ends here</source>
        <translation>Die Aufzeichnung des USB-Verkehrs endet hier</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>The report was not saved</source>
        <translation>Der Bericht wurde nicht gespeichert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Verifying was stopped</source>
        <translation>Die Prüfung wurde abgebrochen</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>What the pedal sent back is the same, sample for sample.</source>
        <translation>Was das Pedal zurückgesendet hat, ist Sample für Sample gleich.</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>loops %1</source>
        <comment>loop %1</comment>
        <translation>
            <numerusform>Loop %1</numerusform>
            <numerusform>Loops %1</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>the computer did not give access in time</source>
        <translation>der Computer hat den Zugriff nicht rechtzeitig freigegeben</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>the pedal refused</source>
        <translation>das Pedal hat abgelehnt</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>the system rule is missing</source>
        <translation>die Systemregel fehlt</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>the system rule is not in force</source>
        <translation>die Systemregel ist nicht wirksam</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 of %n changes made</source>
        <comment>%1 of %n changes made</comment>
        <translation>
            <numerusform>%1 von %n Änderung vorgenommen</numerusform>
            <numerusform>%1 von %n Änderungen vorgenommen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 were erased.</source>
        <comment>%1 was erased.</comment>
        <translation>
            <numerusform>%1 wurde gelöscht.</numerusform>
            <numerusform>%1 wurden gelöscht.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 were not touched.</source>
        <comment>%1 was not touched.</comment>
        <translation>
            <numerusform>%1 blieb unverändert.</numerusform>
            <numerusform>%1 blieben unverändert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 were written.</source>
        <comment>%1 was written.</comment>
        <translation>
            <numerusform>%1 wurde geschrieben.</numerusform>
            <numerusform>%1 wurden geschrieben.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops backed up in %1</source>
        <comment>%n loop backed up in %1</comment>
        <translation>
            <numerusform>%n Loop in %1 gesichert</numerusform>
            <numerusform>%n Loops in %1 gesichert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops restored</source>
        <comment>%n loop restored</comment>
        <translation>
            <numerusform>%n Loop wiederhergestellt</numerusform>
            <numerusform>%n Loops wiederhergestellt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops restored, %1 erased</source>
        <comment>%n loop restored, %1 erased</comment>
        <translation>
            <numerusform>%n Loop wiederhergestellt, %1 gelöscht</numerusform>
            <numerusform>%n Loops wiederhergestellt, %1 gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n of %1 were saved. The next backup in this folder continues from there.</source>
        <comment>%n of %1 was saved. The next backup in this folder continues from there.</comment>
        <translation>
            <numerusform>%n von %1 wurde gesichert. Die nächste Sicherung in diesem Ordner macht dort weiter.</numerusform>
            <numerusform>%n von %1 wurden gesichert. Die nächste Sicherung in diesem Ordner macht dort weiter.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n of them were there already.</source>
        <comment>%n of them was there already.</comment>
        <translation>
            <numerusform>%n davon war schon vorhanden.</numerusform>
            <numerusform>%n davon waren schon vorhanden.</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>All of them were there already.</source>
        <translation>Alle waren schon vorhanden.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Erase loops on the pedal, or tick "Erase loops that are not in this backup".</source>
        <translation>Loops auf dem Pedal löschen oder „Loops löschen, die nicht in dieser Sicherung sind“ ankreuzen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Nothing was backed up</source>
        <translation>Nichts gesichert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Nothing was changed.</source>
        <translation>Nichts geändert.</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Restoring erases %n loops on the 7306. Would you like to continue?</source>
        <comment>Restoring erases %n loop on the 7306. Would you like to continue?</comment>
        <translation>
            <numerusform>Das Wiederherstellen löscht %n Loop auf dem 7306. Möchten Sie fortfahren?</numerusform>
            <numerusform>Das Wiederherstellen löscht %n Loops auf dem 7306. Möchten Sie fortfahren?</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Restoring replaces %1 and erases %2 on the 7306. Would you like to continue?</source>
        <translation>Das Wiederherstellen ersetzt %1 und löscht %2 auf dem 7306. Möchten Sie fortfahren?</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Restoring replaces %n loops on the 7306. Would you like to continue?</source>
        <comment>Restoring replaces %n loop on the 7306. Would you like to continue?</comment>
        <translation>
            <numerusform>Das Wiederherstellen ersetzt %n Loop auf dem 7306. Möchten Sie fortfahren?</numerusform>
            <numerusform>Das Wiederherstellen ersetzt %n Loops auf dem 7306. Möchten Sie fortfahren?</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>The backup is not complete</source>
        <translation>Die Sicherung ist unvollständig</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>The pedal already has all loops of this backup</source>
        <translation>Das Pedal hat bereits alle Loops dieser Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>What was written was read back and is the same, sample for sample.</source>
        <translation>Die geschriebenen Daten wurden zurückgelesen und sind Sample für Sample gleich.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>a newer version of this program wrote it</source>
        <translation>von einer neueren Version dieses Programms geschrieben</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it cannot be read</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it is longer than the pedal's 24 minutes</source>
        <translation>länger als die 24 Minuten des Pedals</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it is not complete</source>
        <translation>unvollständig</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it is not there any more</source>
        <translation>nicht mehr vorhanden</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>its folder cannot be created</source>
        <translation>der Ordner dafür kann nicht angelegt werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>its index is damaged</source>
        <translation>der Index ist beschädigt</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>its index is not one of a backup</source>
        <translation>der Index gehört nicht zu einer Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>%1 % was sent</source>
        <translation>%1 % wurden gesendet</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware %1 cannot be offered</source>
        <translation>Firmware %1 kann nicht angeboten werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware %1 runs on the pedal</source>
        <translation>Auf dem Pedal läuft Firmware %1</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware %1 was sent. Install it again.</source>
        <translation>Firmware %1 wurde gesendet. Erneut installieren.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware list read at %1: %2 is the newest</source>
        <translation>Firmware-Liste um %1 gelesen: %2 ist die neueste</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>It did not confirm the image. Check whether this is its version.</source>
        <translation>Es hat das Abbild nicht bestätigt. Prüfen, ob das Pedal diese Version hat.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>It waits in its loader until it gets firmware.</source>
        <translation>Es wartet im Bootloader auf Firmware.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Leave it plugged in: it may still be storing the firmware.</source>
        <translation>Pedal nicht abziehen: Es speichert die Firmware möglicherweise noch.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>No firmware was installed</source>
        <translation>Keine Firmware installiert</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Restarting the pedal</source>
        <translation>Das Pedal wird neu gestartet</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Sending image</source>
        <translation>Abbild wird gesendet</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Sending image, %1 %</source>
        <translation>Abbild wird gesendet, %1 %</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Sent, but the pedal has not come back yet</source>
        <translation>Gesendet, aber das Pedal ist noch nicht wieder da</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware could not be sent completely</source>
        <translation>Die Firmware konnte nicht vollständig gesendet werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware list could not be read</source>
        <translation>Die Firmware-Liste konnte nicht gelesen werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware list has not been read yet</source>
        <translation>Die Firmware-Liste wurde noch nicht gelesen</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware was sent</source>
        <translation>Die Firmware wurde gesendet</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware was sent, but the pedal does not report its version</source>
        <translation>Die Firmware wurde gesendet, aber das Pedal meldet seine Version nicht</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware was sent, but the pedal has not restarted yet</source>
        <translation>Die Firmware wurde gesendet, aber das Pedal ist noch nicht neu gestartet</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal came back without taking the image; close and reopen the window</source>
        <translation>Das Pedal ist ohne das neue Abbild wieder da; Fenster schließen und wieder öffnen</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal did not take the image</source>
        <translation>Das Pedal hat das Abbild nicht angenommen</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal has not come back yet.</source>
        <translation>Das Pedal ist noch nicht wieder da.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal is preparing</source>
        <translation>Das Pedal bereitet sich vor</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal keeps its firmware.</source>
        <translation>Das Pedal behält seine Firmware.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal may have kept its firmware.</source>
        <translation>Das Pedal hat seine Firmware möglicherweise behalten.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal may have stayed in its loader. Unplug it, plug it in again and install again.</source>
        <translation>Das Pedal ist möglicherweise im Bootloader geblieben. Abziehen, wieder anschließen und erneut installieren.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Unplug it and plug it in again.</source>
        <translation>Pedal abziehen und wieder anschließen.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Unplug it and plug it in again. The program goes on looking for it for ten minutes.</source>
        <translation>Pedal abziehen und wieder anschließen. Das Programm sucht noch zehn Minuten lang danach.</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Waiting for the pedal to come back</source>
        <translation>Warten, bis das Pedal wieder da ist</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>it came back in its loader</source>
        <translation>es hat sich im Bootloader zurückgemeldet</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>it is back with firmware %1</source>
        <translation>es ist mit Firmware %1 wieder da</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>its image could not be downloaded, verified and stored</source>
        <translation>ihr Abbild konnte nicht heruntergeladen, geprüft und gespeichert werden</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>the maker's server could not be reached</source>
        <translation>der Server des Herstellers ist nicht erreichbar</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>the server could not prove that it is the maker's</source>
        <translation>der Server konnte nicht nachweisen, dass er dem Hersteller gehört</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>what the maker's server sent cannot be used</source>
        <translation>die Antwort des Herstellerservers ist nicht verwendbar</translation>
    </message>
    <message>
        <location filename="../../src/platform/awake.cpp"/>
        <source>Loops are being copied</source>
        <translation>Loops werden kopiert</translation>
    </message>
    <message>
        <location filename="../../src/platform/awake.cpp"/>
        <source>The pedal's firmware is being installed</source>
        <translation>Die Firmware des Pedals wird installiert</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1 B</source>
        <translation>%1 B</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1 are needed and %2 are free</source>
        <translation>%1 werden benötigt, %2 sind frei</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1 kB</source>
        <translation>%1 kB</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1.%2</source>
        <translation>%1,%2</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Cannot allocate memory</source>
        <translation>Nicht genügend Arbeitsspeicher</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Connection timed out</source>
        <translation>Zeitüberschreitung bei der Verbindung</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Device or resource busy</source>
        <translation>Das Gerät oder die Ressource ist belegt</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Disk quota exceeded</source>
        <translation>Der zugeteilte Speicherplatz (Quota) ist aufgebraucht</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>File exists</source>
        <translation>Die Datei existiert bereits</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>File name too long</source>
        <translation>Der Dateiname ist zu lang</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>File too large</source>
        <translation>Die Datei ist zu groß</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Input/output error</source>
        <translation>Eingabe-/Ausgabefehler</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Is a directory</source>
        <translation>Es ist ein Ordner</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No space left on device</source>
        <translation>Auf dem Gerät ist kein Speicherplatz mehr frei</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No such device</source>
        <translation>Das Gerät ist nicht vorhanden</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No such device or address</source>
        <translation>Das Gerät oder die Adresse ist nicht vorhanden</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No such file or directory</source>
        <translation>Datei oder Ordner nicht gefunden</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Not a directory</source>
        <translation>Es ist kein Ordner</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Operation not permitted</source>
        <translation>Die Operation ist nicht erlaubt</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Read-only file system</source>
        <translation>Das Dateisystem ist schreibgeschützt</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Stale file handle</source>
        <translation>Der Zugriff auf die Datei ist nicht mehr gültig</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Too many open files</source>
        <translation>Zu viele offene Dateien</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Transport endpoint is not connected</source>
        <translation>Das Laufwerk ist nicht mehr verbunden</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot.cpp"/>
        <source>complete</source>
        <translation>fertig</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_button.cpp"/>
        <source>Add Loop</source>
        <translation>Loop hinzufügen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_button.cpp"/>
        <source>Overwrite Loop</source>
        <translation>Loop überschreiben</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>%1 name</source>
        <translation>Name von %1</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>%1 plays</source>
        <translation>%1 wird abgespielt</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>%1, select</source>
        <translation>%1, auswählen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Compare with %1</source>
        <translation>Mit %1 vergleichen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Overwrite %1</source>
        <translation>%1 überschreiben</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Play %1</source>
        <translation>%1 abspielen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>Play %1, %2</source>
        <translation>%1 abspielen, %2</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Remove file from loop %1</source>
        <translation>Datei aus Loop %1 entfernen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>Stop %1</source>
        <translation>%1 stoppen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>being read</source>
        <translation>wird gelesen</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>picked up</source>
        <translation>ausgewählt</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>playing</source>
        <translation>wird abgespielt</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>staged</source>
        <translation>vorgemerkt</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>staged, replaces a loop</source>
        <translation>vorgemerkt, ersetzt einen Loop</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_sound.cpp"/>
        <source>Tempo %1</source>
        <translation>Tempo %1</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/doctor.cpp"/>
        <source>%1 goes into %2.</source>
        <translation>%1 kommt in den Ordner %2.</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>%1 could not be started</source>
        <translation>%1 konnte nicht gestartet werden</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>no password was given</source>
        <translation>es wurde kein Passwort eingegeben</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>the commands ended with status %1</source>
        <translation>die Befehle endeten mit Status %1</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>the password could not be asked for, or it was wrong</source>
        <translation>das Passwort konnte nicht abgefragt werden oder war falsch</translation>
    </message>
    <message>
        <location filename="../../src/ui/alert.cpp"/>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <location filename="../../src/ui/alert.cpp"/>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <location filename="../../src/ui/mass_selection_button.cpp"/>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <location filename="../../src/ui/mass_selection_button.cpp"/>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/about_window.cpp"/>
        <source>About 7306 Loop Manager</source>
        <translation>Über 7306 Loop Manager</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/about_window.cpp"/>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Back Up</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Copy the whole pedal to this computer</source>
        <translation>Das ganze Pedal auf diesen Computer kopieren</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Erase loops that are not in this backup</source>
        <translation>Loops löschen, die nicht in dieser Sicherung sind</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Loops that are the same are not copied twice.</source>
        <translation>Gleiche Loops werden nicht zweimal kopiert.</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Other folder…</source>
        <translation>Anderer Ordner …</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Put a backup back onto the pedal</source>
        <translation>Eine Sicherung auf dem Pedal wiederherstellen</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>%n copies on this computer, %1. Above 2 GB the oldest are removed.</source>
        <comment>%n copy on this computer, %1. Above 2 GB the oldest are removed.</comment>
        <translation>
            <numerusform>%n Kopie auf diesem Computer, %1. Über 2 GB werden die ältesten entfernt.</numerusform>
            <numerusform>%n Kopien auf diesem Computer, %1. Über 2 GB werden die ältesten entfernt.</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>A loop is copied here before you erase or replace it.</source>
        <translation>Bevor Sie einen Loop löschen oder ersetzen, wird er hierher kopiert.</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Bring Back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Bring back loops that were erased or replaced</source>
        <translation>Gelöschte oder ersetzte Loops zurückholen</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Keep Copies is off: what you erase or replace now is gone.</source>
        <translation>„Kopien aufbewahren“ ist aus: Was Sie jetzt löschen oder ersetzen, ist verloren.</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>No copies on this computer.</source>
        <translation>Keine Kopien auf diesem Computer.</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Nothing to bring back</source>
        <translation>Nichts zurückzuholen</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Nothing to bring back.</source>
        <translation>Nichts zurückzuholen.</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>%1, %2, %3, %4</source>
        <translation>%1, %2, %3, %4</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to %1</source>
        <translation>auf %1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to slot %1</source>
        <translation>auf Platz %1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to slot %1, empty</source>
        <translation>auf Platz %1, leer</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to slot %1, replaces its loop</source>
        <translation>auf Platz %1, ersetzt dessen Loop</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_targets.cpp"/>
        <source>Slots</source>
        <translation>Plätze</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>%n problems were found</source>
        <comment>%n problem was found</comment>
        <translation>
            <numerusform>%n Problem gefunden</numerusform>
            <numerusform>%n Probleme gefunden</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Checking the pedal and this computer…</source>
        <translation>Pedal und Computer werden untersucht …</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Copies the findings as text</source>
        <translation>Kopiert das Ergebnis als Text</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Doctor</source>
        <translation>Diagnose</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>No problems were found</source>
        <translation>Keine Probleme gefunden</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>OK: %1</source>
        <translation>OK: %1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Problem: %1</source>
        <translation>Problem: %1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Save Report…</source>
        <translation>Bericht speichern …</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>About...</source>
        <translation>Über …</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Choose a firmware file for the pedal</source>
        <translation>Firmware-Datei für das Pedal auswählen</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Close menu</source>
        <translation>Menü schließen</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Firmware Update...</source>
        <translation>Firmware-Update …</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Firmware files</source>
        <translation>Firmware-Dateien</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Select Firmware...</source>
        <translation>Firmware auswählen …</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Software Update...</source>
        <translation>Software-Update …</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1 of %2 – %3%</source>
        <translation>%1 von %2 – %3 %</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1B</source>
        <translation>%1 B</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1KB</source>
        <translation>%1 kB</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>Transferred</source>
        <translation>Übertragen</translation>
    </message>
    <message>
        <location filename="../../src/ui/qt_dialogs.cpp"/>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <location filename="../../src/ui/shield.cpp"/>
        <source>The 7306 is busy</source>
        <translation>Das 7306 ist beschäftigt</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_list.cpp"/>
        <source>Nothing has happened yet.</source>
        <translation>Noch ist nichts geschehen.</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_list.cpp"/>
        <location filename="../../src/ui/status/status_sentence.cpp"/>
        <source>Recent results</source>
        <translation>Letzte Ergebnisse</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>%1 %2.</source>
        <translation>%1 %2.</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>%1, %2.</source>
        <translation>%1, %2.</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>%1, failed, %2.</source>
        <translation>%1, Fehler, %2.</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <source>%1, button.</source>
        <translation>%1, Schaltfläche.</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <source>Failed: %1.</source>
        <translation>Fehler: %1.</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_sentence.cpp"/>
        <source>Failed: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_sentence.cpp"/>
        <source>Shows the recent results</source>
        <translation>Zeigt die letzten Ergebnisse</translation>
    </message>
    <message>
        <location filename="../../src/ui/times.cpp"/>
        <source>HH:mm</source>
        <extracomment>A time of day, by the letters of QLocale.</extracomment>
        <translation>HH:mm</translation>
    </message>
    <message>
        <location filename="../../src/ui/times.cpp"/>
        <source>en</source>
        <translation>de</translation>
    </message>
    <message>
        <location filename="../../src/updates/app_image.cpp"/>
        <source>the path of the program or of its previous version is not a file</source>
        <translation>der Pfad des Programms oder seiner vorherigen Version ist keine Datei</translation>
    </message>
    <message>
        <location filename="../../src/updates/app_image.cpp"/>
        <source>the previous version cannot be kept</source>
        <translation>die vorherige Version kann nicht aufbewahrt werden</translation>
    </message>
    <message>
        <location filename="../../src/updates/app_image.cpp"/>
        <source>the program no longer exists</source>
        <translation>das Programm ist nicht mehr vorhanden</translation>
    </message>
    <message>
        <location filename="../../src/updates/firmware_texts.cpp"/>
        <source>KZQ7306 %1 is now available—you have %2. Would you like to install it now?</source>
        <translation>KZQ7306 %1 ist jetzt verfügbar – Sie haben %2. Möchten Sie es jetzt installieren?</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>another program is downloading the same file</source>
        <translation>ein anderes Programm lädt dieselbe Datei herunter</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the download cannot be completed</source>
        <translation>das Herunterladen kann nicht abgeschlossen werden</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the download cannot be moved into place</source>
        <translation>die heruntergeladene Datei kann nicht an ihren Platz verschoben werden</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the download cannot be stored</source>
        <translation>die heruntergeladene Datei kann nicht gespeichert werden</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the file at the path for the download belongs to another user</source>
        <translation>die Datei am Download-Pfad gehört einem anderen Benutzer</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the path for the download is not a file</source>
        <translation>der Download-Pfad ist keine Datei</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>not an https address</source>
        <translation>keine https-Adresse</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>redirected to an address that is not https</source>
        <translation>Weiterleitung auf eine Adresse ohne https</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the download took too long</source>
        <translation>das Herunterladen hat zu lange gedauert</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the file could not be stored</source>
        <translation>die Datei konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the file is shorter than stated</source>
        <translation>die Datei ist kleiner als angegeben</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the file is too long</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the server stopped answering</source>
        <translation>der Server antwortet nicht mehr</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the stated length is too large</source>
        <translation>die angegebene Dateigröße ist zu hoch</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>too many redirects</source>
        <translation>zu viele Weiterleitungen</translation>
    </message>
    <message>
        <location filename="../../src/updates/self_check.cpp"/>
        <source>it cannot be started</source>
        <translation>sie lässt sich nicht starten</translation>
    </message>
    <message>
        <location filename="../../src/updates/self_check.cpp"/>
        <source>it does not answer</source>
        <translation>sie antwortet nicht</translation>
    </message>
    <message>
        <location filename="../../src/updates/self_check.cpp"/>
        <source>it ends with an error</source>
        <translation>sie endet mit einem Fehler</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the package installer could not be started; install this package yourself: %1</source>
        <translation>das Installationsprogramm konnte nicht gestartet werden; dieses Paket von Hand installieren: %1</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the signature of the update is wrong</source>
        <translation>die Signatur des Updates ist ungültig</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the update is not signed</source>
        <translation>das Update ist nicht signiert</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the update's address is not secure</source>
        <translation>die Adresse des Updates ist nicht sicher</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the update's length is missing or out of range</source>
        <translation>die Größe des Updates fehlt oder ist unzulässig</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the updated program could not be started; quit and start it again</source>
        <translation>das aktualisierte Programm konnte nicht gestartet werden; beenden und neu starten</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the website %1 could not be opened</source>
        <translation>die Website %1 konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the length of the update is not the stated one</source>
        <translation>die Größe des Updates weicht von der angegebenen ab</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the update is not an AppImage</source>
        <translation>das Update ist kein AppImage</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the update is not the one that was signed</source>
        <translation>das Update ist nicht das, das signiert wurde</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the update is not verified</source>
        <translation>das Update ist nicht geprüft</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>it is not the stated version</source>
        <translation>sie ist nicht die angegebene Version</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the list of updates could not be read: %1</source>
        <translation>die Liste der Updates konnte nicht gelesen werden: %1</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the list of updates is damaged</source>
        <translation>die Liste der Updates ist beschädigt</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the new version does not work: %1; the program in place was not changed</source>
        <translation>die neue Version funktioniert nicht: %1; das vorhandene Programm wurde nicht verändert</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the update could not be downloaded: %1</source>
        <translation>das Update konnte nicht heruntergeladen werden: %1</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/firmware_updater_progress.cpp"/>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update.cpp"/>
        <source>The pedal is busy. Try again later.</source>
        <translation>Das Pedal ist beschäftigt. Später erneut versuchen.</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is installed. Would you like to start it now?</source>
        <translation>%1 ist installiert. Möchten Sie es jetzt starten?</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is now available—you have %2. This copy cannot update itself.</source>
        <translation>%1 ist jetzt verfügbar – Sie haben %2. Diese Installation kann sich nicht selbst aktualisieren.</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is now available—you have %2. Would you like to install it now?</source>
        <translation>%1 ist jetzt verfügbar – Sie haben %2. Möchten Sie es jetzt installieren?</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is the newest version available.</source>
        <translation>%1 ist die neueste verfügbare Version.</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 of %2 – %3 %</source>
        <translation>%1 von %2 – %3 %</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Checking for updates…</source>
        <translation>Suche nach Updates …</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Checking the download…</source>
        <translation>Die heruntergeladene Datei wird geprüft …</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Downloading %1…</source>
        <translation>%1 wird heruntergeladen …</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Follow its steps, then quit this program and start it again.</source>
        <translation>Dessen Anweisungen folgen, dann dieses Programm beenden und neu starten.</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Installing %1…</source>
        <translation>%1 wird installiert …</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Restart</source>
        <translation>Neu starten</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>The package installer has taken over.</source>
        <translation>Das Installationsprogramm hat übernommen.</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>The program could not be updated.</source>
        <translation>Das Programm konnte nicht aktualisiert werden.</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <location filename="../../src/words/words.cpp"/>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
</TS>
