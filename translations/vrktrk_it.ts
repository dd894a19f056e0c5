<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>Dati GPS completi (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>Formato GPX (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>Traccia OziExplorer (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Traccia Google Earth (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>Estrazione dei dati GPS</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>VrkTrk</source>
        <translation>VrkTrk</translation>
    </message>
    <message>
        <source>Выберите этот вормат для передачи данных GPS в программу OziExplorer</source>
        <translation>Scegli questo formato per usare i dati GPS in OziExplorer</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>Traccia OziExplorer (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>Il file di output conterrà tutti i messaggi del ricevitore GPS presenti nell’archivio.</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>Dati GPS completi (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>Un formato pensato per scambiare dati GPS tra programmi.&lt;br&gt;È compatibile con la maggior parte dei programmi.</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>Formato GPX (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>Scegli questo formato per visualizzare la traccia GPS in Google Earth o su https://maps.google.com/</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>KML Google Earth (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;Scegli un formato per la traccia GPS&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Il formato adatto dipende dal programma che usi. Consulta il suo manuale per sapere quali formati accetta.&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>File VRK3 (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salva</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>File %s non trovato. Reinstalla l’applicazione.</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>Minimizza</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Massimizza</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>Ripristina</translation>
    </message>
</context>
</TS>
