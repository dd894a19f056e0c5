<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>Datos GPS completos (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>Formato GPX (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>Track de OziExplorer (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Track de Google Earth (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>Extrayendo los datos GPS</translation>
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
        <translation>Elija este formato para usar los datos GPS en OziExplorer</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>Track de OziExplorer (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>El archivo de salida contendrá todos los mensajes del receptor GPS guardados en el archivo VRK3.</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>Datos GPS completos (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>Un formato diseñado para intercambiar datos GPS entre programas.&lt;br&gt;Es compatible con la mayoría de los programas.</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>Formato GPX (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>Elija este formato para ver el track GPS en Google Earth o en https://maps.google.com/</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>KML de Google Earth (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;Elija un formato para el track GPS&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;El formato adecuado depende del programa que utilice. Consulte en su manual qué formatos admite.&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>Archivos VRK3 (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>No se encontró el archivo %s. Vuelva a instalar la aplicación.</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Maximizar</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>Restaurar</translation>
    </message>
</context>
</TS>
