#include "schema.h"

/// Created in this order: every table stands after those it refers to.
const QVector<TableDefinition> &schemaTables()
{
    static const QVector<TableDefinition> tables = {
        {"rules_goods", "id INT UNSIGNED NOT NULL, name CHAR(50), PRIMARY KEY(id)"},
        {"type_device", "id INT UNSIGNED NOT NULL, name CHAR(50), PRIMARY KEY(id)"},
        {"devices", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, id_type_device INT UNSIGNED, name CHAR(100), "
                    "PRIMARY KEY(id), UNIQUE(name), "
                    "CONSTRAINT fc_typedev_devices FOREIGN KEY (id_type_device) REFERENCES type_device(id)"},
        {"group_shop",
         "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(50), data_update TIMESTAMP NOT NULL, "
         "PRIMARY KEY(id), UNIQUE(name)"},
        {"group_goods",
         "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(50), data_update TIMESTAMP NOT NULL, "
         "PRIMARY KEY(id), UNIQUE(name)"},
        {"slujb_op", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(100), plus_minus BOOL, "
                     "data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), UNIQUE(name)"},
        {"day_update",
         "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(150), data_update TIMESTAMP NOT NULL, "
         "PRIMARY KEY(id), UNIQUE(name)"},
        {"tax", "id INT UNSIGNED NOT NULL, name CHAR(25), pdv_proc INT UNSIGNED, dod_name CHAR(25), "
                "dod_proc INT UNSIGNED, data_update TIMESTAMP NOT NULL, PRIMARY KEY(id)"},
        {"yesno", "id BOOL NOT NULL, name CHAR(25), PRIMARY KEY(id), UNIQUE(name)"},
        {"discbonus", "id BOOL NOT NULL, name CHAR(25), PRIMARY KEY(id), UNIQUE(name)"},
        {"type_goods", "id BOOL NOT NULL, name CHAR(25), PRIMARY KEY(id), UNIQUE(name)"},
        {"type_check", "id INT UNSIGNED NOT NULL, name CHAR(100), PRIMARY KEY(id)"},
        {"procent", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(25), discount INT, sum INT UNSIGNED, "
                    "auto BOOL, block BOOL, data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), UNIQUE(name)"},
        {"shops", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, address CHAR(150), name CHAR(32), "
                  "group_shop INT UNSIGNED, day_update INT UNSIGNED, one_str_title CHAR(50), "
                  "two_str_title CHAR(50), three_str_title CHAR(50), four_str_title CHAR(50), "
                  "one_str_bottom CHAR(50), two_str_bottom CHAR(50), network_shop CHAR(15), "
                  "sum_cash INT NOT NULL DEFAULT 0, count_day_cycle INT, block BOOL, info_block CHAR(150), "
                  "data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), UNIQUE INDEX(address), "
                  "UNIQUE (network_shop), "
                  "CONSTRAINT fc_sh_day_update FOREIGN KEY (day_update) REFERENCES day_update(id), "
                  "CONSTRAINT fc_sh_group_shop FOREIGN KEY (group_shop) REFERENCES group_shop(id)"},
        {"group_premission", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(50) NOT NULL, "
                             "data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), UNIQUE(name)"},
        {"lst_group", "id_g_prem INT UNSIGNED NOT NULL, id_group INT UNSIGNED NOT NULL, "
                      "PRIMARY KEY(id_g_prem,id_group), "
                      "CONSTRAINT fc_lg_id_g_prem FOREIGN KEY (id_g_prem) REFERENCES group_premission(id), "
                      "CONSTRAINT fc_lg_id_group FOREIGN KEY (id_group) REFERENCES group_shop(id)"},
        {"lst_groups_transmit",
         "id_g_prem INT UNSIGNED NOT NULL, id_group INT UNSIGNED NOT NULL, "
         "PRIMARY KEY(id_g_prem,id_group), "
         "CONSTRAINT fc_lgt_id_g_prem FOREIGN KEY (id_g_prem) REFERENCES group_premission(id), "
         "CONSTRAINT fc_lgt_id_group FOREIGN KEY (id_group) REFERENCES shops(id)"},
        {"lst_shops_transmit",
         "id_g_prem INT UNSIGNED NOT NULL, id_shop INT UNSIGNED NOT NULL, "
         "PRIMARY KEY(id_g_prem,id_shop), "
         "CONSTRAINT fc_lst_id_g_prem FOREIGN KEY (id_g_prem) REFERENCES group_premission(id), "
         "CONSTRAINT fc_lst_id_shop FOREIGN KEY (id_shop) REFERENCES shops(id)"},
        {"lst_permis", "id_g_prem INT UNSIGNED NOT NULL, id_prem INT UNSIGNED NOT NULL, "
                       "permission INT UNSIGNED NOT NULL DEFAULT 0, PRIMARY KEY(id_g_prem,id_prem), "
                       "CONSTRAINT fc_lp_id_g_prem FOREIGN KEY (id_g_prem) REFERENCES group_premission(id)"},
        {"users", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, login CHAR(20) NOT NULL, "
                  "pass CHAR(32) NOT NULL, key_prem CHAR(10) NOT NULL, name CHAR(50) NOT NULL, "
                  "surname CHAR(50) NOT NULL, surname2 CHAR(50) DEFAULT NULL, "
                  "telephone CHAR(10) DEFAULT NULL, id_g_prem INT UNSIGNED NOT NULL, "
                  "id_group INT UNSIGNED NOT NULL DEFAULT 1, id_shop INT UNSIGNED DEFAULT 0, "
                  "data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), UNIQUE(login), UNIQUE(pass), "
                  "UNIQUE(key_prem), "
                  "CONSTRAINT fc_u_id_g_prem FOREIGN KEY (id_g_prem) REFERENCES group_premission(id)"},
        {"kassa", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, id_shop INT UNSIGNED NOT NULL, "
                  "advertising_str CHAR(50), cashdrive_code CHAR(3), head_edit BOOL NOT NULL DEFAULT 0, "
                  "block BOOL, info_block CHAR(150), data_update TIMESTAMP NOT NULL, "
                  "ip_address CHAR(15) DEFAULT NULL, id_type INT UNSIGNED DEFAULT NULL, "
                  "marka CHAR(50) DEFAULT NULL, model CHAR(50) DEFAULT NULL, "
                  "id_device INT UNSIGNED DEFAULT NULL, number CHAR(50) DEFAULT NULL, PRIMARY KEY(id), "
                  "CONSTRAINT fc_k_id_shop FOREIGN KEY (id_shop) REFERENCES shops(id), "
                  "CONSTRAINT fc_k_id_type FOREIGN KEY (id_type) REFERENCES type_device(id), "
                  "CONSTRAINT fc_dev_kass FOREIGN KEY (id_device) REFERENCES type_device(id)"},
        {"onoffline",
         "id_shop INT UNSIGNED NOT NULL, id_kass INT UNSIGNED, onoff BOOL NOT NULL, "
         "dt_start DATETIME NOT NULL, dt_end DATETIME, "
         "CONSTRAINT fc_onoff_id_shop FOREIGN KEY (id_shop) REFERENCES shops(id), "
         "CONSTRAINT fc_onoff_id_kass FOREIGN KEY (id_kass) REFERENCES kassa(id) ON DELETE SET NULL"},
        {"goods", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(200), name_short CHAR(32), "
                  "price_in INT UNSIGNED DEFAULT 0, price INT UNSIGNED, type BOOL, group_g INT UNSIGNED, "
                  "tax INT UNSIGNED, paym_bonus BOOL DEFAULT 1, bonus_disk BOOL NOT NULL DEFAULT 0, "
                  "id_rules_goods INT UNSIGNED DEFAULT 1, block BOOL, info CHAR(100) DEFAULT NULL, "
                  "data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), INDEX(name), "
                  "CONSTRAINT fc_g_type FOREIGN KEY (type) REFERENCES type_goods(id), "
                  "CONSTRAINT fc_g_group_g FOREIGN KEY (group_g) REFERENCES group_goods(id), "
                  "CONSTRAINT fc_g_tax FOREIGN KEY (tax) REFERENCES tax(id), "
                  "CONSTRAINT fc_g_id_rules_goods FOREIGN KEY (id_rules_goods) REFERENCES rules_goods(id), "
                  "CONSTRAINT fc_g_bonus_disk FOREIGN KEY (bonus_disk) REFERENCES yesno(id), "
                  "CONSTRAINT fc_g_paym_bonus FOREIGN KEY (paym_bonus) REFERENCES yesno(id)"},
        {"dk_shc",
         "id_goods INT UNSIGNED NOT NULL, shtrihcod CHAR(13) NOT NULL, "
         "data_update TIMESTAMP NOT NULL, PRIMARY KEY (id_goods, shtrihcod), "
         "UNIQUE INDEX (shtrihcod), "
         "CONSTRAINT fc_ds_id_goods FOREIGN KEY (id_goods) REFERENCES goods (id) ON DELETE CASCADE"},
        {"prices", "id_goods INT UNSIGNED NOT NULL, id_shop INT UNSIGNED, id_group INT UNSIGNED, "
                   "priority INT UNSIGNED NOT NULL DEFAULT 0, price_in INT UNSIGNED NOT NULL DEFAULT 0, "
                   "price INT UNSIGNED NOT NULL, period_start_date DATE DEFAULT 0, "
                   "period_end_date DATE DEFAULT 0, period_start_time TIME DEFAULT 0, "
                   "period_end_time TIME DEFAULT 0, week_day INT UNSIGNED DEFAULT 0, "
                   "info CHAR(50) DEFAULT NULL, data_update TIMESTAMP NOT NULL, "
                   "PRIMARY KEY(id_goods,id_shop,id_group,priority), "
                   "CONSTRAINT fc_p_id_goods FOREIGN KEY (id_goods) REFERENCES goods(id), "
                   "CONSTRAINT fc_p_id_group FOREIGN KEY (id_group) REFERENCES group_shop(id)"},
        {"type_action", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(50) NOT NULL, "
                        "data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), UNIQUE(name)"},
        {"action", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(50) NOT NULL, "
                   "id_type_action INT UNSIGNED NOT NULL, val INT UNSIGNED NOT NULL DEFAULT 0, "
                   "val_1 INT UNSIGNED NOT NULL DEFAULT 0, val_2 INT UNSIGNED NOT NULL DEFAULT 0, "
                   "datetime_start DATETIME DEFAULT 0, datetime_end DATETIME DEFAULT 0, week_day CHAR(28), "
                   "data_update TIMESTAMP NOT NULL, UNIQUE(name), PRIMARY KEY(id), "
                   "CONSTRAINT fc_a_id_type_action FOREIGN KEY (id_type_action) REFERENCES type_action(id)"},
        {"goods_shop", "id_shop INT UNSIGNED NOT NULL, id_goods INT UNSIGNED NOT NULL, "
                       "count_showroom INT NOT NULL DEFAULT 0, count_syllable INT NOT NULL DEFAULT 0, "
                       "id_action INT UNSIGNED NOT NULL DEFAULT 1, data_update TIMESTAMP NOT NULL, "
                       "PRIMARY KEY(id_shop,id_goods), "
                       "CONSTRAINT fc_gs_id_shop FOREIGN KEY (id_shop) REFERENCES shops(id), "
                       "CONSTRAINT fc_gs_id_action FOREIGN KEY (id_action) REFERENCES action(id), "
                       "CONSTRAINT fc_gs_id_goods FOREIGN KEY (id_goods) REFERENCES goods(id)"},
        {"clients",
         "id INT UNSIGNED NOT NULL, id_procent INT UNSIGNED NOT NULL DEFAULT 1, "
         "bonus_summ INT NOT NULL DEFAULT 0, summ INT NOT NULL DEFAULT 0, "
         "bonus_discount BOOL NOT NULL DEFAULT 0, fiksed BOOL NOT NULL DEFAULT 0, "
         "group_shop INT UNSIGNED NOT NULL DEFAULT 0, name CHAR(150) DEFAULT NULL, "
         "telephone CHAR(50) DEFAULT NULL, email CHAR(100) DEFAULT NULL, birthday DATE DEFAULT 0, "
         "block BOOL NOT NULL DEFAULT 0, info CHAR(50) DEFAULT NULL, send BOOL NOT NULL DEFAULT 0, "
         "data_update TIMESTAMP NOT NULL, PRIMARY KEY(id), "
         "CONSTRAINT fc_c_id_procent FOREIGN KEY (id_procent) REFERENCES procent(id), "
         "CONSTRAINT fc_c_bonus_discount FOREIGN KEY (bonus_discount) REFERENCES discbonus(id), "
         "CONSTRAINT fc_c_fiksed FOREIGN KEY (fiksed) REFERENCES yesno(id), "
         "CONSTRAINT fc_c_group_shop FOREIGN KEY (group_shop) REFERENCES group_shop(id), "
         "CONSTRAINT fc_c_block FOREIGN KEY (block) REFERENCES yesno(id)"},
        {"z_zvit", "id_zzvit INT UNSIGNED, id_shop INT UNSIGNED, id_kass INT UNSIGNED, id_user INT UNSIGNED, "
                   "id_period INT UNSIGNED NOT NULL DEFAULT 0, day INT UNSIGNED NOT NULL DEFAULT 1, "
                   "cash INT UNSIGNED DEFAULT 0, beznal_1 INT UNSIGNED DEFAULT 0, "
                   "beznal_2 INT UNSIGNED DEFAULT 0, beznal_3 INT UNSIGNED DEFAULT 0, "
                   "Oborot_A INT UNSIGNED DEFAULT 0, Oborot_B INT UNSIGNED DEFAULT 0, "
                   "Oborot_V INT UNSIGNED DEFAULT 0, Oborot_G INT UNSIGNED DEFAULT 0, "
                   "Oborot_D INT UNSIGNED DEFAULT 0, cash_ret INT UNSIGNED DEFAULT 0, "
                   "beznal_1_ret INT UNSIGNED DEFAULT 0, beznal_2_ret INT UNSIGNED DEFAULT 0, "
                   "beznal_3_ret INT UNSIGNED DEFAULT 0, Oborot_A_ret INT UNSIGNED DEFAULT 0, "
                   "Oborot_B_ret INT UNSIGNED DEFAULT 0, Oborot_V_ret INT UNSIGNED DEFAULT 0, "
                   "Oborot_G_ret INT UNSIGNED DEFAULT 0, Oborot_D_ret INT UNSIGNED DEFAULT 0, "
                   "PDV_A INT UNSIGNED, DOD_A INT UNSIGNED, PDV_B INT UNSIGNED, DOD_B INT UNSIGNED, "
                   "PDV_V INT UNSIGNED, DOD_V INT UNSIGNED, PDV_G INT UNSIGNED, DOD_G INT UNSIGNED, "
                   "PDV_D INT UNSIGNED, DOD_D INT UNSIGNED, count_cheks INT UNSIGNED DEFAULT 0, "
                   "count_cheks_ret INT UNSIGNED DEFAULT 0, count_chek_diskount INT UNSIGNED DEFAULT 0, "
                   "count_position_canc INT UNSIGNED DEFAULT 0, count_chek_canc INT UNSIGNED DEFAULT 0, "
                   "summ_diskount INT UNSIGNED DEFAULT 0, summ_diskount_ret INT UNSIGNED DEFAULT 0, "
                   "vnesenia INT UNSIGNED DEFAULT 0, viluchenia INT UNSIGNED DEFAULT 0, data_time DATETIME, "
                   "PRIMARY KEY(id_zzvit,id_kass), "
                   "CONSTRAINT fc_zz_id_shop FOREIGN KEY (id_shop) REFERENCES shops(id), "
                   "CONSTRAINT fc_zz_id_user FOREIGN KEY (id_user) REFERENCES users(id), "
                   "CONSTRAINT fc_zz_id_kass FOREIGN KEY (id_kass) REFERENCES kassa(id)"},
        {"cheks", "id_shop INT UNSIGNED NOT NULL, id_kass INT UNSIGNED NOT NULL, "
                  "id_zvit INT UNSIGNED NOT NULL, id_chek INT UNSIGNED NOT NULL, id_position INT UNSIGNED, "
                  "id_user INT UNSIGNED, id_type INT UNSIGNED, id_good_cln_slujb INT UNSIGNED, "
                  "name CHAR(200), strihcode CHAR(13), count INT, price INT DEFAULT 1, summa INT DEFAULT 0, "
                  "tax INT DEFAULT 5, type BOOL, id_type_action INT UNSIGNED DEFAULT 1, "
                  "sumdisc INT UNSIGNED NOT NULL DEFAULT 0, dis_bon_bez2 INT DEFAULT 0, "
                  "bonus_plus INT DEFAULT 0, data_time DATETIME, "
                  "PRIMARY KEY(id_shop,id_kass,id_chek,id_position), "
                  "CONSTRAINT fc_ch_id_shop FOREIGN KEY (id_shop) REFERENCES shops(id), "
                  "CONSTRAINT fc_ch_id_user FOREIGN KEY (id_user) REFERENCES users(id), "
                  "CONSTRAINT fc_ch_id_type FOREIGN KEY (id_type) REFERENCES type_check(id)"},
        {"invoice",
         "id INT UNSIGNED NOT NULL AUTO_INCREMENT, id_user_with INT UNSIGNED, "
         "id_user_to INT UNSIGNED, id_shop_with INT UNSIGNED, id_shop_to INT UNSIGNED, "
         "id_kass_with INT UNSIGNED DEFAULT 0, id_kass_to INT UNSIGNED DEFAULT 0, "
         "is_cash_goods BOOL, cash_send INT UNSIGNED, cash_accept INT UNSIGNED, "
         "msg_with CHAR(250), msg_to CHAR(250), data_time_open DATETIME, data_time_close DATETIME, "
         "PRIMARY KEY(id), "
         "CONSTRAINT fc_inv_id_shop_with FOREIGN KEY (id_shop_with) REFERENCES shops(id), "
         "CONSTRAINT fc_inv_id_shop_to FOREIGN KEY (id_shop_to) REFERENCES shops(id)"},
        {"transactions_goods",
         "id_invoice INT UNSIGNED, id_good INT UNSIGNED, count_send INT UNSIGNED, "
         "count_accept INT UNSIGNED, result BOOL DEFAULT NULL, PRIMARY KEY(id_invoice,id_good), "
         "CONSTRAINT fc_trg_id_good FOREIGN KEY (id_good) REFERENCES goods(id), "
         "CONSTRAINT fc_trg_id_invoice FOREIGN KEY (id_invoice) REFERENCES invoice(id)"},
        {"cd_cheks", "id_shop INT UNSIGNED, id_kass INT UNSIGNED, id_good INT UNSIGNED, count INT UNSIGNED, "
                     "dat DATE, dat_close DATE DEFAULT 0, count_close INT UNSIGNED DEFAULT 0, "
                     "PRIMARY KEY(id_shop,id_good,dat), "
                     "CONSTRAINT fc_cdc_id_shop FOREIGN KEY (id_shop) REFERENCES shops(id), "
                     "CONSTRAINT fc_cdc_id_kass FOREIGN KEY (id_kass) REFERENCES kassa(id), "
                     "CONSTRAINT fc_cdc_id_good FOREIGN KEY (id_good) REFERENCES goods(id)"},
        {"comands", "id INT UNSIGNED NOT NULL AUTO_INCREMENT, name CHAR(50), comand CHAR(250), "
                    "param CHAR(250), data_update TIMESTAMP NOT NULL, PRIMARY KEY(id)"},
    };
    return tables;
}
